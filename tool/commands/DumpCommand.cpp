// vexpa dump FILE...: the whole package as JSON.

#include <memory>

#include "tool/commands/Command.h"
#include "tool/commands/CommonArguments.h"
#include "tool/model/OpenPackage.h"
#include "tool/model/PackageJson.h"

namespace vexpa_tool {

namespace {

ExitStatus Fill(const InputFile& file, Json& json) {
    const auto package = OpenPackage(file);
    FillPackageJson(*package, file, json);
    return kDone;
}

CommandRun Declare(const CommandLine& line) {
    const auto options = std::make_shared<FileOptions>();
    AddFiles(line, *options);
    return [options] {
        options->json = true;
        FileCommand command;
        command.members = {{"relationships", Json::array()}, {"parts", Json::array()}};
        command.fillJson = Fill;
        return RunFiles(*options, command);
    };
}

const CommandRegistration registration({"dump", "Write the whole package as JSON", Declare});

}  // namespace

}  // namespace vexpa_tool
