// vexpa rels FILE [PART]: the relationships of the package or of a part, or all of them.

#include <memory>
#include <string>
#include <vector>

#include "tool/commands/Command.h"
#include "tool/commands/CommonArguments.h"
#include "tool/model/OpenPackage.h"
#include "tool/model/PackageJson.h"
#include "tool/model/PartArgument.h"
#include "tool/model/PartWalk.h"
#include "tool/model/RelationshipQuery.h"
#include "tool/text/Local.h"
#include "tool/text/Output.h"
#include "tool/text/ShortNames.h"
#include "tool/text/Table.h"
#include "tool/text/Unicode.h"

namespace vexpa_tool {

namespace {

namespace opc = tarn::opc;

struct Arguments {
    FileOptions options;
    std::vector<std::string> words;  // FILE [PART], or only files
    std::string part;
    std::string type;
    bool isAll = false;
    bool externalOnly = false;
    bool isSeveral = false;

    RelationshipQuery Query() const { return {FromLocal(type), externalOnly}; }
};

// Shows the relationships of one file.
class RelsTable {
public:
    RelsTable(opc::Package& package, const Arguments& arguments)
        : package_(package), arguments_(arguments), query_(arguments.Query()) {
        Table::Row heading = {"Id", "Type", "Mode", "Target", "Resolved", "Part"};
        if (arguments_.isAll) heading.insert(heading.begin(), "Source");
        if (HasMark()) heading.push_back("First");
        table_.AddHeading(heading);
    }

    void Add(const RelationshipSource& source) {
        for (const auto& [id, relationship] : source.Relationships()) {
            if (query_.Matches(*relationship)) AddRow(source, *relationship);
        }
    }

    bool IsEmpty() const { return count_ == 0; }

    void WriteTo(Output& out) const {
        table_.WriteTo(out);
        if (HasMark() && !arguments_.isAll && count_ > 1) {
            out.WriteLine(std::to_string(count_) + " relationships; " + MarkText());
        }
    }

private:
    bool HasMark() const { return !arguments_.type.empty(); }

    const char* MarkText() const {
        if (hasMarked_) return "GetRelationshipByType answers the one marked *";
        return hasKnownType_ ? "GetRelationshipByType answers one that has lost its Id to another"
                             : "the library has no number for the type to find one by";
    }

    void AddRow(const RelationshipSource& source, const opc::Relationship& relationship) {
        Table::Row row = MakeRow(relationship);
        if (arguments_.isAll) row.insert(row.begin(), SourceText(source));
        if (HasMark() && source.IsFirst(relationship)) {
            row.push_back(Inked(Ink::Good, "*"));
            hasMarked_ = true;
        }
        hasKnownType_ = hasKnownType_ || relationship.GetTypeId() != opc::RelTypeUnknown;
        table_.Add(row);
        ++count_;
    }

    static std::string SourceText(const RelationshipSource& source) {
        return source.part == nullptr ? "/" : PrintableOrQuotes(source.part->GetName().name);
    }

    Table::Row MakeRow(const opc::Relationship& relationship) const {
        const bool isExternal = relationship.GetTargetMode() == opc::TargetModeExternal;
        const bool hasPart = TargetPart(package_, relationship) != nullptr;
        return {PrintableOrQuotes(tarn::CopyText(relationship.GetId())),
                ShortType(relationship),
                isExternal ? Inked(Ink::Notice, "external") : "internal",
                PrintableOrQuotes(relationship.GetTarget().name),
                PrintableOrQuotes(relationship.GetResolvedTarget().name),
                isExternal ? "-"
                : hasPart  ? "yes"
                           : Inked(Ink::Bad, "no")};
    }

    opc::Package& package_;
    const Arguments& arguments_;
    const RelationshipQuery query_;
    Table table_;
    std::size_t count_ = 0;
    bool hasMarked_ = false;
    bool hasKnownType_ = false;
};

std::vector<RelationshipSource> Sources(opc::Package& package, const InputFile& file,
                                        const Arguments& arguments) {
    if (arguments.isAll) return AllSources(package);
    return {{&package, FindPartOrPackage(package, file, arguments.part)}};
}

// The type may be a slip of the hand, which an empty answer would not tell.
void RequireSome(bool isEmpty, const InputFile& file, const Arguments& arguments) {
    if (!isEmpty || arguments.isSeveral || arguments.type.empty()) return;
    const std::string what = std::string("no ") + (arguments.externalOnly ? "external " : "") +
                             "relationships of type " + PrintableLocal(arguments.type);
    if (!arguments.part.empty()) throw PartError(kNoSuchPart, file, arguments.part, what);
    throw ToolError(kNoSuchPart, PrintableLocal(file.name) + ": " + what);
}

ExitStatus Show(const InputFile& file, const Arguments& arguments, Output& out) {
    const auto package = OpenPackage(file);
    RelsTable table(*package, arguments);
    for (const RelationshipSource& source : Sources(*package, file, arguments)) table.Add(source);
    RequireSome(table.IsEmpty(), file, arguments);
    // Of many files, those that have none of what is looked for are of no interest.
    const bool isSearch = arguments.externalOnly || !arguments.type.empty();
    if (!(arguments.isSeveral && isSearch && table.IsEmpty())) table.WriteTo(out);
    return kDone;
}

ExitStatus Fill(const InputFile& file, const Arguments& arguments, Json& json) {
    const auto package = OpenPackage(file);
    const RelationshipQuery query = arguments.Query();
    for (const RelationshipSource& source : Sources(*package, file, arguments)) {
        for (const auto& [id, relationship] : source.Relationships()) {
            if (!query.Matches(*relationship)) continue;
            Json item = RelationshipJson(*package, *relationship);
            item["first"] = source.IsFirst(*relationship);
            json["relationships"].push_back(std::move(item));
        }
    }
    RequireSome(json["relationships"].empty(), file, arguments);
    return kDone;
}

// Without --all or --part the second word is a part.
void TellFilesFromPart(Arguments& arguments, bool partIsGiven) {
    std::vector<std::string>& files = arguments.options.files.arguments;
    files = arguments.words;
    if (!arguments.isAll && !partIsGiven) {
        if (files.size() > 2) throw WrongUsage("FILE: several need --all or --part");
        if (files.size() == 2) arguments.part = files.back();
        files.resize(1);
    }
    arguments.isSeveral = MeansSeveralFiles(arguments.options.files);
}

CommandRun Declare(const CommandLine& line) {
    const auto arguments = std::make_shared<Arguments>();
    line.Words("FILE [PART]", arguments->words,
               "The package, - for standard input; and what has the relationships: a part's name "
               "or its last segments, main, ID@PART or TYPE@PART; with --all or --part, every word "
               "is a FILE");
    const Argument part =
        line.Option("--part", arguments->part, "List those of this part").Called("PART");
    line.Flag("--all", arguments->isAll, "List those of the package and of every part").Excludes(part);
    line.Option("--type", arguments->type, "Only those of a type: header, 8 or its URI").Called("TYPE");
    line.Flag("--external", arguments->externalOnly, "Only those that lead out of the package");
    AddFileOptions(line, arguments->options);
    NoteTypeNumbers(line);
    return [arguments, part] {
        TellFilesFromPart(*arguments, part.IsGiven());
        FileCommand command;
        command.showText = [&](const InputFile& file, Output& out) {
            return Show(file, *arguments, out);
        };
        command.members = {{"relationships", Json::array()}};
        command.fillJson = [&](const InputFile& file, Json& json) {
            return Fill(file, *arguments, json);
        };
        return RunFiles(arguments->options, command);
    };
}

const CommandRegistration registration({"rels", "List the relationships of the package or a part",
                                        Declare});

}  // namespace

}  // namespace vexpa_tool
