// vexpa info FILE...: what kind of package it is, how large, and whether it opens.

#include <memory>
#include <string>

#include "tool/check/PackageInfo.h"
#include "tool/check/ReportJson.h"
#include "tool/check/ReportText.h"
#include "tool/check/Shown.h"
#include "tool/commands/Command.h"
#include "tool/commands/CommonArguments.h"
#include "tool/model/OpenFailure.h"
#include "tool/model/OpenPackage.h"
#include "tool/text/Appearance.h"
#include "tool/text/Local.h"
#include "tool/text/Size.h"
#include "tool/text/Table.h"

namespace vexpa_tool {

namespace {

constexpr std::size_t kLabelWidth = 15;

std::string KindText(const PackageInfo& info) {
    if (!info.hasModel) return "no package";
    const DocumentKind& document = info.document;
    std::string text = document.kind.empty() ? "package" : document.kind;
    if (!document.conformance.empty()) text += " (" + document.conformance + ")";
    if (document.mainPart.empty()) return text + ", no main part";
    text += ", main part " + Shown(document.mainPart);
    if (!document.kind.empty() || document.contentType.empty()) return text;
    return text + " of type " + Shown(document.contentType);
}

std::string ContainerText(const PackageInfo& info) {
    if (!info.isZip) return "none, " + HumanSize(info.fileSize);
    return std::string(info.hasDirectory ? "zip, " : "zip without a directory, ") +
           Counted(info.entries, "entry, ", "entries, ") + HumanSize(info.packedSize) + " packed -> " +
           HumanSize(info.unpackedSize);
}

std::string RelationshipsText(const PackageInfo& info) {
    return GroupedDigits(info.packageRelationships) + " package, " +
           GroupedDigits(info.partRelationships) + " in " +
           Counted(info.sourceParts, "part, ", "parts, ") + GroupedDigits(info.external) +
           " external, " + GroupedDigits(info.dangling) + " dangling";
}

std::string TypesText(const PackageInfo& info) {
    return Counted(info.defaults, "default, ", "defaults, ") +
           Counted(info.overrides, "override, ", "overrides, ") +
           Counted(info.partsWithoutType, "part without a type", "parts without a type");
}

void WriteRow(const std::string& label, const std::string& text, Output& out) {
    out.WriteLine("  " + Inked(Ink::Faint, Padded(label, kLabelWidth - 2)) + "  " + text);
}

ExitStatus StatusOf(const PackageInfo& info) {
    return info.stop ? StatusOf(*info.stop) : kDone;
}

ExitStatus Show(const InputFile& file, Output& out) {
    const PackageInfo info = InfoOf(file);
    out.WriteLine(Inked(Ink::Strong, Padded(PrintableLocal(file.name), kLabelWidth)) + "  " +
                  KindText(info));
    if (StatusOf(info) != kReadOrWriteError) WriteRow("container", ContainerText(info), out);
    if (info.hasModel) {
        WriteRow("relationships", RelationshipsText(info), out);
        WriteRow("content types", TypesText(info), out);
    }
    WriteRow(
        "opens",
        info.stop ? Inked(Ink::Bad, "no") + ": " + ReasonText(*info.stop) : Inked(Ink::Good, "yes"),
        out);
    return StatusOf(info);
}

Json TextOrNull(const std::string& text) {
    return text.empty() ? Json() : Json(text);
}

Json InfoJson(const PackageInfo& info) {
    Json json;
    json["kind"] = TextOrNull(info.document.kind);
    json["conformance"] = TextOrNull(info.document.conformance);
    json["main_part"] = TextOrNull(info.document.mainPart);
    json["main_content_type"] = TextOrNull(info.document.contentType);
    json["container"] = {{"zip", info.isZip},         {"directory", info.hasDirectory},
                         {"size", info.fileSize},     {"entries", info.entries},
                         {"packed", info.packedSize}, {"unpacked", info.unpackedSize}};
    json["relationships"] = {{"package", info.packageRelationships},
                             {"parts", info.partRelationships},
                             {"sources", info.sourceParts},
                             {"external", info.external},
                             {"dangling", info.dangling}};
    json["parts"] = {{"reached", info.parts}, {"without_type", info.partsWithoutType}};
    json["content_types"] = {{"defaults", info.defaults}, {"overrides", info.overrides}};
    json["reason"] = info.stop ? FindingJson(*info.stop) : Json();
    return json;
}

ExitStatus Fill(const InputFile& file, Json& json) {
    const PackageInfo info = InfoOf(file);
    json.update(InfoJson(info));
    json["opened"] = !info.stop;
    if (info.stop) json["error"] = NotOpened(file, *info.stop).what();
    return StatusOf(info);
}

CommandRun Declare(const CommandLine& line) {
    const auto options = std::make_shared<FileOptions>();
    AddFiles(line, *options);
    return [options] {
        FileCommand command;
        command.heading = Heading::BlankLine;
        command.showText = Show;
        command.members = InfoJson({});
        command.fillJson = Fill;
        return RunFiles(*options, command);
    };
}

const CommandRegistration registration({"info",
                                        "Show the kind of a package, its size, and whether it opens",
                                        Declare});

}  // namespace

}  // namespace vexpa_tool
