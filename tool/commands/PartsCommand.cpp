// vexpa parts FILE...: every part that the package reaches.

#include <memory>
#include <optional>
#include <string>

#include "tool/commands/Command.h"
#include "tool/commands/CommonArguments.h"
#include "tool/model/OpenPackage.h"
#include "tool/model/PartReader.h"
#include "tool/model/PartWalk.h"
#include "tool/text/Output.h"
#include "tool/text/Table.h"
#include "tool/text/Unicode.h"

namespace vexpa_tool {

namespace {

constexpr std::size_t kSizeColumn = 1;

ExitStatus Show(const InputFile& file, Output& out) {
    const auto package = OpenPackage(file);
    PartReader reader(file);
    Table table;
    table.AlignRight(kSizeColumn);
    table.AddHeading({"Part", "Size", "Content type"});
    for (tarn::opc::Part* part : ReachedParts(*package)) {
        const std::optional<std::uint64_t> size = reader.Size(*part);
        table.Add({PrintableOrQuotes(part->GetName().name),
                   size ? std::to_string(*size) : Inked(Ink::Bad, "unreadable"),
                   PrintableOrQuotes(tarn::CopyText(part->GetContentType()))});
    }
    table.WriteTo(out);
    return kDone;
}

ExitStatus Fill(const InputFile& file, Json& json) {
    const auto package = OpenPackage(file);
    PartReader reader(file);
    for (tarn::opc::Part* part : ReachedParts(*package)) {
        const std::optional<std::uint64_t> size = reader.Size(*part);
        json["parts"].push_back({{"name", ToUtf8(part->GetName().name)},
                                 {"size", size ? Json(*size) : Json()},
                                 {"content_type", ToUtf8(tarn::CopyText(part->GetContentType()))}});
    }
    return kDone;
}

CommandRun Declare(const CommandLine& line) {
    const auto options = std::make_shared<FileOptions>();
    AddFiles(line, *options);
    return [options] {
        FileCommand command;
        command.showText = Show;
        command.members = {{"parts", Json::array()}};
        command.fillJson = Fill;
        return RunFiles(*options, command);
    };
}

const CommandRegistration registration({"parts", "List the parts, by way of the relationships",
                                        Declare});

}  // namespace

}  // namespace vexpa_tool
