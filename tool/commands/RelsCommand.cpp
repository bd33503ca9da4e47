// vexpa rels FILE [PART]: the relationships of the package or of a part.

#include <memory>
#include <string>

#include "tool/commands/Command.h"
#include "tool/model/OpenPackage.h"
#include "tool/model/PartWalk.h"
#include "tool/text/Output.h"
#include "tool/text/ShortNames.h"
#include "tool/text/Table.h"
#include "tool/text/Unicode.h"

namespace vexpa_tool {

namespace {

namespace opc = tarn::opc;

struct Arguments {
    std::string file;
    std::string part;
    bool hasPart = false;
};

Table::Row MakeRow(opc::Package& package, const opc::Relationship& relationship) {
    const bool isExternal = relationship.GetTargetMode() == opc::TargetModeExternal;
    const char* hasPart = isExternal ? "-" : TargetPart(package, relationship) ? "yes" : "no";
    return {PrintableOrQuotes(tarn::CopyText(relationship.GetId())),
            ShortType(relationship),
            isExternal ? "external" : "internal",
            PrintableOrQuotes(relationship.GetTarget().name),
            PrintableOrQuotes(relationship.GetResolvedTarget().name),
            hasPart};
}

void Run(const Arguments& arguments) {
    const auto package = OpenPackage(arguments.file);
    const opc::RelationshipMap& relationships =
        arguments.hasPart ? OpenPart(*package, arguments.file, arguments.part).GetRelationships()
                          : package->GetRelationships();
    Table table;
    table.Add({"Id", "Type", "Mode", "Target", "Resolved", "Part"});
    for (const auto& [id, relationship] : relationships) table.Add(MakeRow(*package, *relationship));
    for (const std::string& line : table.Lines()) WriteLine(line);
}

std::function<void()> Declare(CLI::App& app) {
    const auto arguments = std::make_shared<Arguments>();
    app.add_option("FILE", arguments->file, "the package")->required();
    CLI::Option* part = app.add_option(
        "PART", arguments->part, "the part that has the relationships; without it, the package's");
    return [arguments, part] {
        arguments->hasPart = part->count() != 0;
        Run(*arguments);
    };
}

const CommandRegistration registration({"rels", "List the relationships of the package or a part",
                                        Declare});

}  // namespace

}  // namespace vexpa_tool
