// vexpa tree FILE...: the package as a tree, along its relationships.

#include <algorithm>
#include <memory>
#include <optional>
#include <string>
#include <unordered_map>
#include <utility>

#include "tool/commands/Command.h"
#include "tool/commands/CommonArguments.h"
#include "tool/model/OpenPackage.h"
#include "tool/model/PackageJson.h"
#include "tool/model/PartReader.h"
#include "tool/model/RelationshipTree.h"
#include "tool/text/Local.h"
#include "tool/text/Output.h"
#include "tool/text/ShortNames.h"
#include "tool/text/Size.h"
#include "tool/text/Table.h"
#include "tool/text/Unicode.h"

namespace vexpa_tool {

namespace {

namespace opc = tarn::opc;

constexpr std::size_t kWidestId = 20;

std::string IdText(const opc::Relationship& relationship) {
    return PrintableOrQuotes(tarn::CopyText(relationship.GetId()));
}

// Makes the rows of the table from the lines of the tree.
class TreeRows {
public:
    explicit TreeRows(const InputFile& file) : reader_(file) {}

    Table::Row MakeRow(const TreeLine& line) {
        const std::string id = Padded(IdText(*line.relationship), IdWidth(*line.siblings));
        const std::string head = line.lead + id + "  " + ShortType(*line.relationship);
        switch (line.kind) {
            case TargetKind::Part:
                return {head, Target(line), SizeText(*line.part), Content(*line.part)};
            case TargetKind::Above:
                return {head, Target(line), "(above)"};
            case TargetKind::Cycle:
                return {head, Target(line), "(cycle)"};
            case TargetKind::Missing:
                return {head, Target(line), "(missing)"};
            case TargetKind::External:
                break;
        }
        const std::string target = PrintableOrQuotes(line.relationship->GetTarget().name);
        return {head, "-> " + target, "(external)"};
    }

private:
    static std::string Target(const TreeLine& line) {
        return PrintableOrQuotes(line.relationship->GetResolvedTarget().name);
    }

    std::string SizeText(opc::Part& part) {
        const std::optional<std::uint64_t> size = reader_.Size(part);
        if (!size) return "unreadable";
        const std::string text = HumanSize(*size);
        constexpr std::size_t kWidestNumber = 6;  // 1023.9
        return PaddedLeft(text, text.size() - text.find(' ') + kWidestNumber);
    }

    static std::string Content(const opc::Part& part) {
        return ShortContentType(Printable(tarn::CopyText(part.GetContentType())));
    }

    // Measured once for all the relationships of a source.
    std::size_t IdWidth(const opc::RelationshipMap& siblings) {
        const auto [found, isNew] = idWidths_.try_emplace(&siblings, 0);
        if (!isNew) return found->second;
        for (const auto& [id, relationship] : siblings) {
            found->second = std::max(found->second, DisplayWidth(IdText(*relationship)));
        }
        return found->second = std::min(found->second, kWidestId);
    }

    PartReader reader_;
    std::unordered_map<const opc::RelationshipMap*, std::size_t> idWidths_;
};

ExitStatus Show(const InputFile& file, Output& out) {
    const auto package = OpenPackage(file);
    TreeRows rows(file);
    Table table;
    WalkTree(*package, [&](const TreeLine& line) { table.Add(rows.MakeRow(line)); });
    out.WriteLine(PrintableLocal(file.name));
    table.WriteTo(out);
    return kDone;
}

const char* KindName(TargetKind kind) {
    switch (kind) {
        case TargetKind::Above:
            return "above";
        case TargetKind::Cycle:
            return "cycle";
        case TargetKind::Missing:
            return "missing";
        case TargetKind::External:
            return "external";
        case TargetKind::Part:
            break;
    }
    return "part";
}

// Flat, as a tree of objects would be as deep as a hostile package wants.
ExitStatus Fill(const InputFile& file, Json& json) {
    const auto package = OpenPackage(file);
    WalkTree(*package, [&](const TreeLine& line) {
        Json item = {{"level", line.level}, {"kind", KindName(line.kind)}};
        item.update(RelationshipJson(*package, *line.relationship));
        json["tree"].push_back(std::move(item));
    });
    return kDone;
}

CommandRun Declare(CLI::App& app) {
    const auto options = std::make_shared<FileOptions>();
    AddFiles(app, *options);
    return [options] {
        FileCommand command;
        command.heading = Heading::BlankLine;
        command.showText = Show;
        command.members = {{"tree", Json::array()}};
        command.fillJson = Fill;
        return RunFiles(*options, command);
    };
}

const CommandRegistration registration({"tree", "Show the parts as a tree of relationships", Declare});

}  // namespace

}  // namespace vexpa_tool
