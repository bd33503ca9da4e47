// vexpa dump FILE: the whole package as JSON.

#include <memory>
#include <string>

#include "tool/commands/Command.h"
#include "tool/model/OpenPackage.h"
#include "tool/model/PackageJson.h"
#include "tool/text/Output.h"

namespace vexpa_tool {

namespace {

void Run(const std::string& file) {
    const auto package = FindPackage(file);
    WriteLine(JsonText(package ? PackageJson(*package, file) : RefusedPackageJson(file)));
    if (package) return;
    FlushOutput();
    throw NotOpened(file);
}

std::function<void()> Declare(CLI::App& app) {
    const auto file = std::make_shared<std::string>();
    app.add_option("FILE", *file, "the package")->required();
    return [file] { Run(*file); };
}

const CommandRegistration registration({"dump", "Write the whole package as JSON", Declare});

}  // namespace

}  // namespace vexpa_tool
