// vexpa parts FILE: every part that the package reaches.

#include <memory>
#include <optional>
#include <string>

#include "tool/commands/Command.h"
#include "tool/model/OpenPackage.h"
#include "tool/model/PartReader.h"
#include "tool/model/PartWalk.h"
#include "tool/text/Output.h"
#include "tool/text/Table.h"
#include "tool/text/Unicode.h"

namespace vexpa_tool {

namespace {

constexpr std::size_t kSizeColumn = 1;

void Run(const std::string& file) {
    const auto package = OpenPackage(file);
    PartReader reader(file);
    Table table;
    table.AlignRight(kSizeColumn);
    table.Add({"Part", "Size", "Content type"});
    for (tarn::opc::Part* part : ReachedParts(*package)) {
        const std::optional<std::uint64_t> size = reader.Size(*part);
        table.Add({PrintableOrQuotes(part->GetName().name), size ? std::to_string(*size) : "unreadable",
                   PrintableOrQuotes(tarn::CopyText(part->GetContentType()))});
    }
    for (const std::string& line : table.Lines()) WriteLine(line);
}

std::function<void()> Declare(CLI::App& app) {
    const auto file = std::make_shared<std::string>();
    app.add_option("FILE", *file, "the package")->required();
    return [file] { Run(*file); };
}

const CommandRegistration registration({"parts", "List the parts, by way of the relationships",
                                        Declare});

}  // namespace

}  // namespace vexpa_tool
