// vexpa cat FILE PART: the bytes of a part.

#include <memory>
#include <string>

#include "tool/commands/Command.h"
#include "tool/commands/CommonArguments.h"
#include "tool/model/OpenPackage.h"
#include "tool/model/PartArgument.h"
#include "tool/model/PartReader.h"
#include "tool/text/Output.h"

namespace vexpa_tool {

namespace {

struct Arguments {
    std::string file;
    std::string part;
};

ExitStatus Run(const Arguments& arguments) {
    const InputFile file = TheFile(arguments.file);
    const auto package = OpenPackage(file);
    tarn::opc::Part& part = FindPart(*package, file, arguments.part);
    const auto write = [](const char* bytes, std::size_t size) { StandardOutput().Write(bytes, size); };
    if (!PartReader(file).Read(part, write)) {
        throw PartError(kReadOrWriteError, file, arguments.part,
                        "cannot be extracted: damaged or encrypted");
    }
    return kDone;
}

CommandRun Declare(CLI::App& app) {
    const auto arguments = std::make_shared<Arguments>();
    AddFile(app, arguments->file);
    AddPart(app, arguments->part, "what to write")->required();
    return [arguments] { return Run(*arguments); };
}

const CommandRegistration registration({"cat", "Write the bytes of a part", Declare});

}  // namespace

}  // namespace vexpa_tool
