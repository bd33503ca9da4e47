// vexpa types FILE...: the content types, and which rule gives each part its own.

#include <memory>
#include <string>
#include <vector>

#include "tool/commands/Command.h"
#include "tool/commands/CommonArguments.h"
#include "tool/model/ContentTypeRules.h"
#include "tool/model/EntryNames.h"
#include "tool/model/OpenPackage.h"
#include "tool/text/Output.h"
#include "tool/text/Table.h"
#include "tool/text/Unicode.h"

namespace vexpa_tool {

namespace {

namespace opc = tarn::opc;

struct TypedPart {
    std::u16string name;
    std::u16string contentType;   // the library's answer
    const ContentTypeRule* rule;  // null without one
};

// Everything in the archive but the rules themselves, as the rules are for all of it.
std::vector<TypedPart> FindTypes(opc::Package& package, const InputFile& file,
                                 ContentTypeRules& rules) {
    std::vector<TypedPart> parts;
    for (const std::u16string& name : PartNames(file)) {
        opc::Part* part = package.GetPart(opc::PartUri(name.c_str()));
        if (part == nullptr || name == u"[Content_Types].xml") continue;
        ContentTypeRule* rule = rules.Find(name);
        if (rule != nullptr) ++rule->partCount;
        parts.push_back({name, tarn::CopyText(part->GetContentType()), rule});
    }
    return parts;
}

const char* KindText(const ContentTypeRule& rule) {
    return rule.isOverride ? "Override" : "Default";
}

std::string CountText(const ContentTypeRule& rule) {
    if (rule.isRepeated) return Inked(Ink::Notice, "repeated");
    if (rule.partCount != 0) return std::to_string(rule.partCount);
    return Inked(rule.isOverride ? Ink::Notice : Ink::Faint, "0");
}

Table RulesTable(const std::vector<ContentTypeRule>& rules) {
    Table table;
    table.AlignRight(2);
    table.AddHeading({"Rule", "For", "Parts", "Content type"});
    for (const ContentTypeRule& rule : rules) {
        table.Add({KindText(rule), PrintableOrQuotes(rule.key), CountText(rule),
                   PrintableOrQuotes(rule.contentType)});
    }
    return table;
}

std::string RuleText(const ContentTypeRule* rule) {
    if (rule == nullptr) return Inked(Ink::Notice, "none");
    return rule->isOverride ? "Override" : "Default " + PrintableOrQuotes(rule->key);
}

Table PartsTable(const std::vector<TypedPart>& parts) {
    Table table;
    table.AddHeading({"Part", "By", "Content type"});
    for (const TypedPart& part : parts) {
        table.Add({Printable(part.name), RuleText(part.rule), PrintableOrQuotes(part.contentType)});
    }
    return table;
}

ExitStatus Show(const InputFile& file, Output& out) {
    const auto package = OpenPackage(file);
    ContentTypeRules rules(*package, file);
    const std::vector<TypedPart> parts = FindTypes(*package, file, rules);
    RulesTable(rules.Rules()).WriteTo(out);
    out.WriteLine({});
    PartsTable(parts).WriteTo(out);
    return kDone;
}

ExitStatus Fill(const InputFile& file, Json& json) {
    const auto package = OpenPackage(file);
    ContentTypeRules rules(*package, file);
    const std::vector<TypedPart> parts = FindTypes(*package, file, rules);
    for (const ContentTypeRule& rule : rules.Rules()) {
        json["rules"].push_back({{"kind", rule.isOverride ? "override" : "default"},
                                 {"key", ToUtf8(rule.key)},
                                 {"content_type", ToUtf8(rule.contentType)},
                                 {"repeated", rule.isRepeated},
                                 {"parts", rule.partCount}});
    }
    for (const TypedPart& part : parts) {
        json["parts"].push_back(
            {{"name", ToUtf8(part.name)},
             {"content_type", ToUtf8(part.contentType)},
             {"rule", part.rule == nullptr ? Json() : Json(part.rule - rules.Rules().data())}});
    }
    return kDone;
}

CommandRun Declare(const CommandLine& line) {
    const auto options = std::make_shared<FileOptions>();
    AddFiles(line, *options);
    return [options] {
        FileCommand command;
        command.showText = Show;
        command.members = {{"rules", Json::array()}, {"parts", Json::array()}};
        command.fillJson = Fill;
        return RunFiles(*options, command);
    };
}

const CommandRegistration registration({"types", "Show the content types and which rule gives each",
                                        Declare});

}  // namespace

}  // namespace vexpa_tool
