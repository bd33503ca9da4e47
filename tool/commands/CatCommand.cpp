// vexpa cat FILE PART: the bytes of a part.

#include <memory>
#include <string>

#include "tool/commands/Command.h"
#include "tool/commands/CommonArguments.h"
#include "tool/model/OpenPackage.h"
#include "tool/model/PartArgument.h"
#include "tool/model/PartReader.h"
#include "tool/model/PrettyXml.h"
#include "tool/model/XmlElements.h"
#include "tool/text/HexDump.h"
#include "tool/text/Output.h"

namespace vexpa_tool {

namespace {

struct Arguments {
    std::string file;
    std::string part;
    bool isPretty = false;
    bool isHex = false;
};

// Passes the bytes on to `sink`.
void Read(const InputFile& file, const Arguments& arguments, const ByteSink& sink) {
    const auto package = OpenPackage(file);
    tarn::opc::Part& part = FindPart(*package, file, arguments.part);
    if (PartReader(file).Read(part, sink)) return;
    throw PartError(kReadOrWriteError, file, arguments.part,
                    "cannot be extracted: damaged or encrypted");
}

void WriteHex(const InputFile& file, const Arguments& arguments) {
    HexDump dump(StandardOutput());
    Read(file, arguments, [&](const char* bytes, std::size_t size) { dump.Add({bytes, size}); });
    dump.Finish();
}

void WritePretty(const InputFile& file, const Arguments& arguments) {
    std::string xml;
    Read(file, arguments, [&](const char* bytes, std::size_t size) { xml.append(bytes, size); });
    try {
        xml = PrettyXml(xml);
    } catch (const XmlError& error) {
        const std::string what = std::string(error.what()) + "; written as it is";
        Complain(PartError(kDone, file, arguments.part, what).what());
    }
    StandardOutput().Write(xml);
}

ExitStatus Run(const Arguments& arguments) {
    const InputFile file = TheFile(arguments.file);
    if (arguments.isHex) {
        WriteHex(file, arguments);
    } else if (arguments.isPretty) {
        WritePretty(file, arguments);
    } else {
        const auto write = [](const char* bytes, std::size_t size) {
            StandardOutput().Write(bytes, size);
        };
        Read(file, arguments, write);
    }
    return kDone;
}

CommandRun Declare(const CommandLine& line) {
    const auto arguments = std::make_shared<Arguments>();
    AddFile(line, arguments->file);
    AddPart(line, arguments->part, "What to write").Required();
    const Argument pretty = line.Flag("--pretty", arguments->isPretty, "XML with a line for each tag");
    line.Flag("--hex", arguments->isHex, "Bytes as hexadecimal numbers").Excludes(pretty);
    return [arguments] { return Run(*arguments); };
}

const CommandRegistration registration({"cat", "Write the bytes of a part", Declare});

}  // namespace

}  // namespace vexpa_tool
