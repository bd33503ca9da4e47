// vexpa tokens: the tokens of a part's names, and what the vocabulary knows.

#include <sys/stat.h>

#include <memory>
#include <set>
#include <string>

#include "tool/commands/Command.h"
#include "tool/commands/CommonArguments.h"
#include "tool/commands/TokensOfPart.h"
#include "tool/model/NameLookup.h"
#include "tool/model/NamespacePrefixes.h"
#include "tool/model/RelationshipTypeNames.h"
#include "tool/text/JsonText.h"
#include "tool/text/Local.h"
#include "tool/text/Output.h"
#include "tool/text/Table.h"
#include "tool/text/Unicode.h"
#include "vexpa/base/Utf16.h"

namespace vexpa_tool {

namespace {

struct Arguments {
    std::string fileOrName;
    std::string part;
    bool hasName = false;  // or file
    bool hasPart = false;
    bool namespaces = false;
    bool types = false;
    bool json = false;
    bool annotate = false;
};

bool IsFile(const std::string& word) {
    struct stat status;
    return word == "-" || (stat(word.c_str(), &status) == 0 && S_ISREG(status.st_mode));
}

void ShowNames(const Arguments& arguments) {
    const std::u16string text = FromLocal(arguments.fileOrName);
    if (LooksLikeToken(text) && !IsToken(text)) {
        throw WrongUsage(arguments.fileOrName + ": a token is 0x and up to 8 hexadecimal digits");
    }
    const Vocabulary vocabulary;
    const auto names = LookUp(vocabulary, text);
    if (names.empty() && IsFile(arguments.fileOrName)) {
        throw WrongUsage(arguments.fileOrName + ": is a file; name a PART of it, too");
    }
    if (names.empty())
        throw ToolError(kNoSuchPart, PrintableOrQuotes(text) + ": not in the vocabulary");
    Table table;
    for (const VocabularyName& name : names) {
        table.Add({TokenText(name.token), Printable(QualifiedName(name)), PrintableOrQuotes(name.uri)});
        if (arguments.json) {
            StandardOutput().WriteLine(JsonLine(
                {{"uri", ToUtf8(name.uri)}, {"name", ToUtf8(name.name)}, {"token", name.token}}));
        }
    }
    if (!arguments.json) table.WriteTo(StandardOutput());
}

// The prefixes and ids under which a namespace is registered.
struct Registrations {
    std::string prefixes;
    std::string ids;
    Json json = {{"prefixes", Json::array()}, {"ids", Json::array()}};
};

Registrations RegistrationsOf(std::u16string_view uri) {
    Registrations all;
    for (const NamespacePrefix& row : kNamespacePrefixes) {
        if (row.uri != uri) continue;
        const char* comma = all.ids.empty() ? "" : ", ";
        all.prefixes += comma + ToUtf8(row.prefix);
        all.ids += comma + std::to_string(row.namespaceId);
        all.json["prefixes"].push_back(ToUtf8(row.prefix));
        all.json["ids"].push_back(row.namespaceId);
    }
    return all;
}

void ShowNamespaces(const Arguments& arguments) {
    const Vocabulary vocabulary;
    Table table;
    table.AlignRight(2);
    table.AddHeading({"Prefix", "Id", "Names", "Namespace"});
    std::set<std::u16string_view> seen;
    for (const NamespacePrefix& row : kNamespacePrefixes) {
        if (!seen.insert(row.uri).second) continue;
        const std::size_t names = vocabulary.CountNames(row.uri);
        Registrations all = RegistrationsOf(row.uri);
        table.Add({all.prefixes, all.ids, std::to_string(names), PrintableOrQuotes(row.uri)});
        if (!arguments.json) continue;
        all.json["uri"] = ToUtf8(row.uri);
        all.json["names"] = names;
        StandardOutput().WriteLine(JsonLine(all.json));
    }
    if (!arguments.json) table.WriteTo(StandardOutput());
}

void ShowTypes(const Arguments& arguments) {
    Table table;
    table.AlignRight(0);
    table.AddHeading({"Id", "Enumerator", "Type"});
    for (std::size_t i = 0; i < kRelationshipTypeNameCount; ++i) {
        const auto id = static_cast<tarn::opc::RelationshipTypeId>(i);
        const std::u16string uri = tarn::CopyText(tarn::opc::GetRelationshipTypeUri(id));
        table.Add({std::to_string(i), RelationshipTypeName(id), PrintableOrQuotes(uri)});
        if (!arguments.json) continue;
        StandardOutput().WriteLine(
            JsonLine({{"id", i}, {"name", RelationshipTypeName(id)}, {"uri", ToUtf8(uri)}}));
    }
    if (!arguments.json) table.WriteTo(StandardOutput());
}

ExitStatus Run(const Arguments& arguments) {
    if (arguments.namespaces) {
        ShowNamespaces(arguments);
    } else if (arguments.types) {
        ShowTypes(arguments);
    } else if (arguments.hasPart) {
        const InputFile file = TheFile(arguments.fileOrName);
        arguments.annotate ? AnnotatePart(file, arguments.part)
                           : ShowTokensOfPart(file, arguments.part, arguments.json);
    } else if (arguments.hasName) {
        ShowNames(arguments);
    } else {
        throw WrongUsage("FILE and PART, a name, --namespaces or --types is required");
    }
    return kDone;
}

CommandRun Declare(const CommandLine& line) {
    const auto arguments = std::make_shared<Arguments>();
    const Argument first =
        line.Option("FILE|NAME", arguments->fileOrName,
                    "With PART, the package; alone, what to look up: w:val, {uri}val, val, 0x00010001");
    const Argument part = line.Option("PART", arguments->part, "The part whose names are shown");
    const Argument namespaces = line.Flag("--namespaces", arguments->namespaces, "List the namespaces");
    line.Flag("--types", arguments->types, "List the relationship types that have a number")
        .Excludes(first)
        .Excludes(namespaces);
    line.Flag("--json", arguments->json, "A JSON object a line; for a part, one an element");
    namespaces.Excludes(first);
    line.Flag("--annotate", arguments->annotate,
              "Write the part as XML, each name followed by its {namespace:index}")
        .Needs(part);
    return [arguments, first, part] {
        arguments->hasName = first.IsGiven();
        arguments->hasPart = part.IsGiven();
        return Run(*arguments);
    };
}

const CommandRegistration registration({"tokens", "Show the tokens of a part's names, or look one up",
                                        Declare});

}  // namespace

}  // namespace vexpa_tool
