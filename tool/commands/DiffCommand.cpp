// vexpa diff A B: what came, went and changed from one package to another.

#include <QString>
#include <memory>
#include <string>
#include <string_view>

#include "tool/commands/Command.h"
#include "tool/commands/CommonArguments.h"
#include "tool/model/OpenPackage.h"
#include "tool/model/PackageComparison.h"
#include "tool/text/Local.h"
#include "tool/text/Output.h"
#include "tool/text/ShortNames.h"
#include "tool/text/Table.h"
#include "tool/text/Unicode.h"

namespace vexpa_tool {

namespace {

namespace opc = tarn::opc;

struct Arguments {
    std::string a;
    std::string b;
    ComparedKinds kinds;
    bool xml = false;
    bool json = false;
    bool quiet = false;
};

const char* MarkOf(Change change) {
    return change == Change::Came ? "+ " : change == Change::Went ? "- " : "~ ";
}

Ink InkOf(Change change) {
    return change == Change::Came ? Ink::Good : change == Change::Went ? Ink::Bad : Ink::Notice;
}

const char* WordFor(Change change) {
    return change == Change::Came ? "came" : change == Change::Went ? "went" : "changed";
}

std::string SizesText(const PartDifference& part) {
    const auto text = [](const std::optional<PartDigest>& digest) {
        return digest ? std::to_string(digest->size) : "unreadable";
    };
    switch (part.change) {
        case Change::Came:
            return text(part.after) + " bytes";
        case Change::Went:
            return text(part.before) + " bytes";
        case Change::Changed:
            break;
    }
    return text(part.before) + " -> " + text(part.after) + " bytes";
}

std::string TargetText(const opc::Relationship& relationship) {
    const bool isExternal = relationship.GetTargetMode() == opc::TargetModeExternal;
    return " -> " + PrintableOrQuotes(relationship.GetResolvedTarget().name) +
           (isExternal ? " (external)" : "");
}

std::string SideText(const opc::Relationship& relationship) {
    return ShortType(relationship) + TargetText(relationship);
}

std::string SideWithType(const opc::Relationship& relationship) {
    return PrintableOrQuotes(tarn::CopyText(relationship.GetType())) + TargetText(relationship);
}

std::string SidesText(const RelationshipDifference& one) {
    if (one.before == nullptr) return SideText(*one.after);
    if (one.after == nullptr) return SideText(*one.before);
    const std::string before = SideText(*one.before), after = SideText(*one.after);
    if (before != after) return before + " => " + after;
    return SideWithType(*one.before) + " => " + SideWithType(*one.after);
}

std::string FirstText(const opc::Relationship& first) {
    return PrintableOrQuotes(tarn::CopyText(first.GetId())) + TargetText(first);
}

ExitStatus StatusOf(const PackageComparison& comparison) {
    for (const PartDifference& part : comparison.parts) {
        if (part.isUnreadable) return kReadOrWriteError;
    }
    return comparison.IsEmpty() ? kDone : kFindings;
}

// The lines of a part's XML are document text: they may hold anything.
void WriteXmlDifference(const std::string& difference, Output& out) {
    if (difference.empty()) return out.WriteLine("    only white space between tags");
    for (std::string_view rest = difference; !rest.empty();) {
        const std::string_view line = TakeLine(rest);
        const Ink ink = line.starts_with('+')   ? Ink::Good
                        : line.starts_with('-') ? Ink::Bad
                                                : Ink::Plain;
        out.WriteLine("    " + Inked(ink, PrintableLine(line)));
    }
}

void ShowParts(const PackageComparison& comparison, bool withXml, Output& out) {
    std::size_t width = 0;
    for (const PartDifference& part : comparison.parts) {
        width = std::max(width, DisplayWidth(Printable(part.name)));
    }
    width = std::min(width, kWidestColumn);
    for (const PartDifference& part : comparison.parts) {
        out.WriteLine(
            Inked(InkOf(part.change), MarkOf(part.change) + Padded(Printable(part.name), width)) +
            "  " + SizesText(part));
        const auto difference = withXml ? comparison.XmlDifference(part) : std::nullopt;
        if (difference) WriteXmlDifference(*difference, out);
    }
}

void ShowRelationships(const PackageComparison& comparison, Output& out) {
    Table table;
    for (const RelationshipDifference& one : comparison.relationships) {
        const std::string source = one.source.empty() ? "/" : Printable(one.source);
        table.Add({Inked(InkOf(one.change), MarkOf(one.change) + source), PrintableOrQuotes(one.id),
                   SidesText(one)});
    }
    for (const FirstDifference& one : comparison.firsts) {
        const std::string source = one.source.empty() ? "/" : Printable(one.source);
        table.Add({Inked(Ink::Notice, MarkOf(Change::Changed) + source), ShortType(*one.before),
                   "first of its type: " + FirstText(*one.before) + " => " + FirstText(*one.after)});
    }
    table.WriteTo(out);
}

void ShowTypes(const PackageComparison& comparison, Output& out) {
    Table table;
    for (const TypeDifference& one : comparison.types) {
        table.Add({Inked(Ink::Notice, "~ " + Printable(one.name)),
                   PrintableOrQuotes(one.before) + " => " + PrintableOrQuotes(one.after)});
    }
    table.WriteTo(out);
}

Json DigestJson(const std::optional<PartDigest>& digest) {
    if (!digest) return {};
    return {{"size", digest->size}, {"sha256", digest->sha256}};
}

Json RelationshipJson(const opc::Relationship* relationship) {
    if (relationship == nullptr) return {};
    const bool isExternal = relationship->GetTargetMode() == opc::TargetModeExternal;
    return {{"type", ToUtf8(tarn::CopyText(relationship->GetType()))},
            {"target_mode", isExternal ? "external" : "internal"},
            {"resolved_target", ToUtf8(relationship->GetResolvedTarget().name)}};
}

Json FirstJson(const opc::Relationship& first) {
    return {{"id", ToUtf8(tarn::CopyText(first.GetId()))},
            {"resolved_target", ToUtf8(first.GetResolvedTarget().name)}};
}

void FillJson(const PackageComparison& comparison, bool withXml, Json& json) {
    for (const PartDifference& part : comparison.parts) {
        Json item = {{"change", WordFor(part.change)},
                     {"name", ToUtf8(part.name)},
                     {"before", DigestJson(part.before)},
                     {"after", DigestJson(part.after)},
                     {"readable", !part.isUnreadable}};
        const auto difference = withXml ? comparison.XmlDifference(part) : std::nullopt;
        item["xml"] = difference ? Json(QString::fromStdString(*difference).toStdString()) : Json();
        json["parts"].push_back(std::move(item));
    }
    for (const RelationshipDifference& one : comparison.relationships) {
        json["relationships"].push_back({{"change", WordFor(one.change)},
                                         {"source", ToUtf8(one.source)},
                                         {"id", ToUtf8(one.id)},
                                         {"before", RelationshipJson(one.before)},
                                         {"after", RelationshipJson(one.after)}});
    }
    for (const FirstDifference& one : comparison.firsts) {
        json["firsts"].push_back({{"source", ToUtf8(one.source)},
                                  {"type", ToUtf8(tarn::CopyText(one.before->GetType()))},
                                  {"before", FirstJson(*one.before)},
                                  {"after", FirstJson(*one.after)}});
    }
    for (const TypeDifference& one : comparison.types) {
        json["types"].push_back(
            {{"name", ToUtf8(one.name)}, {"before", ToUtf8(one.before)}, {"after", ToUtf8(one.after)}});
    }
}

ExitStatus Run(const Arguments& arguments) {
    const InputFile other = TheFile(arguments.b);
    FileCommand command;
    command.showText = [&](const InputFile& file, Output& out) {
        const PackageComparison comparison(file, other, arguments.kinds);
        if (arguments.quiet) return StatusOf(comparison);
        ShowParts(comparison, arguments.xml, out);
        ShowRelationships(comparison, out);
        ShowTypes(comparison, out);
        return StatusOf(comparison);
    };
    command.members = {
        {"other", ToUtf8(FromLocal(other.name))}, {"other_opened", true},    {"parts", Json::array()},
        {"relationships", Json::array()},         {"firsts", Json::array()}, {"types", Json::array()}};
    command.fillJson = [&](const InputFile& file, Json& json) {
        // The error alone does not tell which of them it is about.
        json["opened"] = static_cast<bool>(FindPackage(file));
        json["other_opened"] = static_cast<bool>(FindPackage(other));
        const PackageComparison comparison(file, other, arguments.kinds);
        FillJson(comparison, arguments.xml, json);
        return StatusOf(comparison);
    };
    return RunFile(arguments.a, arguments.json, command);
}

CommandRun Declare(const CommandLine& line) {
    const auto arguments = std::make_shared<Arguments>();
    line.Option("A", arguments->a, "The package before; - is standard input").Required();
    line.Option("B", arguments->b, "The package after").Required();
    line.Flag("--parts", arguments->kinds.parts, "Compare the parts");
    line.Flag("--rels", arguments->kinds.relationships, "Compare the relationships");
    line.Flag("--types", arguments->kinds.types,
              "Compare the content types; without any of these, all");
    line.Flag("--xml", arguments->xml, "Show how XML parts differ, tag by tag");
    AddJson(line, arguments->json);
    NoteTypeNumbers(line);
    AddQuiet(line, arguments->quiet);
    return [arguments] { return Run(*arguments); };
}

const CommandRegistration registration({"diff", "Compare two packages, part by part", Declare});

}  // namespace

}  // namespace vexpa_tool
