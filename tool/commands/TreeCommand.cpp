// vexpa tree FILE...: the package as a tree, along its relationships.

#include <algorithm>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <unordered_map>
#include <utility>

#include "tool/commands/Command.h"
#include "tool/commands/CommonArguments.h"
#include "tool/model/OpenPackage.h"
#include "tool/model/PackageJson.h"
#include "tool/model/PartArgument.h"
#include "tool/model/PartReader.h"
#include "tool/model/RelationshipTree.h"
#include "tool/text/Appearance.h"
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

struct Arguments {
    FileOptions options;
    std::string from;
    std::size_t depth = SIZE_MAX;
};

std::string IdText(const opc::Relationship& relationship) {
    return PrintableOrQuotes(tarn::CopyText(relationship.GetId()));
}

// The branches of a line, with the characters made for them where the terminal has them.
std::string Drawn(const std::string& lead) {
    if (!TheAppearance().drawsLines) return lead;
    std::string drawn;
    for (std::size_t i = 0; i < lead.size(); ++i) {
        const bool branchesOff = i + 1 < lead.size() && lead[i + 1] == '-';
        if (lead[i] == '|') {
            drawn += branchesOff ? "\u251c" : "\u2502";
        } else if (lead[i] == '`') {
            drawn += "\u2514";
        } else {
            drawn += lead[i] == '-' ? "\u2500" : std::string(1, lead[i]);
        }
    }
    return drawn;
}

// Makes the rows of the table from the lines of the tree.
class TreeRows {
public:
    explicit TreeRows(const InputFile& file) : reader_(file) {}

    Table::Row MakeRow(const TreeLine& line) {
        const std::string id = Padded(IdText(*line.relationship), IdWidth(*line.siblings));
        const std::string head =
            Inked(Ink::Faint, Drawn(line.lead)) + id + "  " + ShortType(*line.relationship);
        switch (line.kind) {
            case TargetKind::Part:
                return PartRow(head, line);
            case TargetKind::Above:
                return {head, Inked(Ink::Faint, Target(line)), Inked(Ink::Faint, "(above)")};
            case TargetKind::Cycle:
                return {head, Inked(Ink::Faint, Target(line)), Inked(Ink::Faint, "(cycle)")};
            case TargetKind::Missing:
                return {head, Inked(Ink::Bad, Target(line)), Inked(Ink::Bad, "(missing)")};
            case TargetKind::External:
                break;
        }
        const std::string target = PrintableOrQuotes(line.relationship->GetTarget().name);
        return {head, Inked(Ink::Notice, "-> " + target), Inked(Ink::Notice, "(external)")};
    }

private:
    Table::Row PartRow(const std::string& head, const TreeLine& line) {
        Table::Row row = {head, Inked(Ink::Strong, Target(line)), SizeText(*line.part),
                          Content(*line.part)};
        if (line.hidden != 0) row.push_back("(" + std::to_string(line.hidden) + " below)");
        return row;
    }

    static std::string Target(const TreeLine& line) {
        return PrintableOrQuotes(line.relationship->GetResolvedTarget().name);
    }

    std::string SizeText(opc::Part& part) {
        const std::optional<std::uint64_t> size = reader_.Size(part);
        if (!size) return Inked(Ink::Bad, "unreadable");
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

TreeLimits Limits(opc::Package& package, const InputFile& file, const Arguments& arguments) {
    return {FindPartOrPackage(package, file, arguments.from), arguments.depth};
}

ExitStatus Show(const InputFile& file, const Arguments& arguments, Output& out) {
    const auto package = OpenPackage(file);
    const TreeLimits limits = Limits(*package, file, arguments);
    TreeRows rows(file);
    Table table;
    WalkTree(*package, limits, [&](const TreeLine& line) { table.Add(rows.MakeRow(line)); });
    std::string root = PrintableLocal(file.name);
    if (limits.from != nullptr) root += ": " + PrintableOrQuotes(limits.from->GetName().name);
    out.WriteLine(Inked(Ink::Strong, root));
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
ExitStatus Fill(const InputFile& file, const Arguments& arguments, Json& json) {
    const auto package = OpenPackage(file);
    WalkTree(*package, Limits(*package, file, arguments), [&](const TreeLine& line) {
        Json item = {{"level", line.level}, {"kind", KindName(line.kind)}, {"hidden", line.hidden}};
        item.update(RelationshipJson(*package, *line.relationship));
        json["tree"].push_back(std::move(item));
    });
    return kDone;
}

CommandRun Declare(const CommandLine& line) {
    const auto arguments = std::make_shared<Arguments>();
    AddFiles(line, arguments->options);
    NoteTypeNumbers(line);
    line.Option("--depth", arguments->depth, "Show at most N levels");
    line.Option("--from", arguments->from, "Begin at a part").Called("PART");
    return [arguments] {
        FileCommand command;
        command.heading = Heading::BlankLine;
        command.showText = [&](const InputFile& file, Output& out) {
            return Show(file, *arguments, out);
        };
        command.members = {{"tree", Json::array()}};
        command.fillJson = [&](const InputFile& file, Json& json) {
            return Fill(file, *arguments, json);
        };
        return RunFiles(arguments->options, command);
    };
}

const CommandRegistration registration({"tree", "Show the parts as a tree of relationships", Declare});

}  // namespace

}  // namespace vexpa_tool
