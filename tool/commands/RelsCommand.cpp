// vexpa rels FILE [PART]: the relationships of the package or of a part.

#include <memory>
#include <string>

#include "tool/commands/Command.h"
#include "tool/commands/CommonArguments.h"
#include "tool/model/OpenPackage.h"
#include "tool/model/PackageJson.h"
#include "tool/model/PartArgument.h"
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
    bool json = false;
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

ExitStatus Show(const InputFile& file, const std::string& part, Output& out) {
    const auto package = OpenPackage(file);
    const opc::RelationshipMap& relationships = FindRelationships(*package, file, part);
    Table table;
    table.Add({"Id", "Type", "Mode", "Target", "Resolved", "Part"});
    for (const auto& [id, relationship] : relationships) table.Add(MakeRow(*package, *relationship));
    table.WriteTo(out);
    return kDone;
}

ExitStatus Fill(const InputFile& file, const std::string& part, Json& json) {
    const auto package = OpenPackage(file);
    json["relationships"] = RelationshipsJson(*package, FindRelationships(*package, file, part));
    return kDone;
}

CommandRun Declare(CLI::App& app) {
    const auto arguments = std::make_shared<Arguments>();
    AddFile(app, arguments->file);
    AddPart(app, arguments->part, "what has the relationships, else the package");
    AddJson(app, arguments->json);
    return [arguments] {
        const std::string& part = arguments->part;
        FileCommand command;
        command.showText = [&](const InputFile& file, Output& out) { return Show(file, part, out); };
        command.members = {{"relationships", Json::array()}};
        command.fillJson = [&](const InputFile& file, Json& json) { return Fill(file, part, json); };
        return RunFile(arguments->file, arguments->json, command);
    };
}

const CommandRegistration registration({"rels", "List the relationships of the package or a part",
                                        Declare});

}  // namespace

}  // namespace vexpa_tool
