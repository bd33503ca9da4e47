// vexpa cat FILE PART: the bytes of a part.

#include <memory>
#include <string>

#include "tool/commands/Command.h"
#include "tool/model/OpenPackage.h"
#include "tool/model/PartReader.h"
#include "tool/text/Output.h"

namespace vexpa_tool {

namespace {

struct Arguments {
    std::string file;
    std::string part;
};

void Run(const Arguments& arguments) {
    const auto package = OpenPackage(arguments.file);
    tarn::opc::Part& part = OpenPart(*package, arguments.file, arguments.part);
    const auto write = [](const char* bytes, std::size_t size) { Write(bytes, size); };
    if (!PartReader(arguments.file).Read(part, write)) {
        throw PartError(kReadOrWriteError, arguments.file, arguments.part,
                        "cannot be extracted: damaged or encrypted");
    }
}

std::function<void()> Declare(CLI::App& app) {
    const auto arguments = std::make_shared<Arguments>();
    app.add_option("FILE", arguments->file, "the package")->required();
    app.add_option("PART", arguments->part, "a part name, with or without the leading slash")
        ->required();
    return [arguments] { Run(*arguments); };
}

const CommandRegistration registration({"cat", "Write the bytes of a part", Declare});

}  // namespace

}  // namespace vexpa_tool
