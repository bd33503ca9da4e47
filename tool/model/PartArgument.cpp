#include "tool/model/PartArgument.h"

#include <algorithm>
#include <string_view>
#include <vector>

#include "tool/model/EntryNames.h"
#include "tool/model/MainPart.h"
#include "tool/model/OpenPackage.h"
#include "tool/model/PartWalk.h"
#include "tool/model/RelationshipQuery.h"
#include "tool/text/Local.h"
#include "tool/text/ShortNames.h"
#include "tool/text/Unicode.h"

namespace vexpa_tool {

namespace opc = tarn::opc;

namespace {

constexpr std::size_t kMostCandidates = 8;  // named in a message

bool IsTailOf(std::u16string_view name, std::u16string_view tail) {
    if (!name.ends_with(tail)) return false;
    return name.size() == tail.size() || name[name.size() - tail.size() - 1] == u'/';
}

class PartFinder {
public:
    PartFinder(opc::Package& package, const InputFile& file, const std::string& argument)
        : package_(package), file_(file), argument_(argument) {}

    // "rId7@styles@main" is read from the right: each Id or type leads to the next part.
    opc::Part& Find(std::u16string_view text) const {
        std::vector<std::u16string> ids;
        opc::Part* part = FindWithoutIds(text);
        while (part == nullptr) {
            const std::size_t at = text.find(u'@');
            if (at == std::u16string_view::npos) Fail("no such part");
            ids.emplace_back(text.substr(0, at));
            text.remove_prefix(at + 1);
            if (text == u"/" || text.empty()) break;
            part = FindWithoutIds(text);
        }
        for (; !ids.empty(); ids.pop_back()) part = &Follow(part, ids.back());
        return *part;
    }

private:
    opc::Part* FindWithoutIds(std::u16string_view text) const {
        if (opc::Part* part = ByName(std::u16string(text))) return part;
        std::u16string unescaped = Unescaped(text);
        // As the library lists a NUL.
        std::replace(unescaped.begin(), unescaped.end(), u'\0', u'\uFFFD');
        if (unescaped != text) {
            if (opc::Part* part = ByName(unescaped)) return part;
        }
        if (text == u"main") return Main();
        return ByTail(text);
    }

    opc::Part* ByName(const std::u16string& name) const {
        return package_.GetPart(opc::PartUri(name.c_str()));
    }

    opc::Part* Main() const {
        const opc::Relationship* main = MainRelationship(package_);
        if (main == nullptr) Fail("no such part: the package has no relationship to a main part");
        opc::Part* part = TargetPart(package_, *main);
        if (part == nullptr)
            Fail("no such part: the " + TypeEnd(*main) + " relationship leads to none");
        return part;
    }

    opc::Part* ByTail(std::u16string_view tail) const {
        if (tail.empty()) return nullptr;
        std::vector<std::u16string> names;
        for (const std::u16string& name : PartNames(file_)) {
            if (IsTailOf(name, tail)) names.push_back(name);
        }
        if (names.size() > 1) Fail(Ambiguous(names));
        return names.empty() ? nullptr : ByName(names.front());
    }

    static std::string Ambiguous(const std::vector<std::u16string>& names) {
        std::string text = "is ambiguous:";
        for (std::size_t i = 0; i < names.size() && i < kMostCandidates; ++i) {
            text += (i == 0 ? " " : ", ") + Printable(names[i]);
        }
        const std::size_t more = names.size() - std::min(names.size(), kMostCandidates);
        return more == 0 ? text : text + " and " + std::to_string(more) + " more";
    }

    // Null is the package.
    opc::Part& Follow(opc::Part* source, const std::u16string& id) const {
        const opc::Relationship* relationship = source == nullptr
                                                    ? package_.GetRelationshipById(id.c_str())
                                                    : source->GetRelationshipById(id.c_str());
        if (relationship == nullptr) relationship = FindByType({&package_, source}, id);
        const std::string owner = source == nullptr ? "the package" : Printable(source->GetName().name);
        if (relationship == nullptr) Fail("no relationship " + Printable(id) + " of " + owner);
        opc::Part* part = TargetPart(package_, *relationship);
        if (part == nullptr) {
            Fail("relationship " + Printable(id) + " of " + owner +
                 " leads to no part: " + PrintableOrQuotes(relationship->GetTarget().name));
        }
        return *part;
    }

    // The library's answer to the search for the type. It has none for a type outside its table;
    // then there may only be one. Null without any.
    const opc::Relationship* FindByType(const RelationshipSource& source,
                                        const std::u16string& type) const {
        const RelationshipQuery query{type};
        const opc::Relationship* found = nullptr;
        std::size_t count = 0;
        for (const auto& [id, relationship] : source.Relationships()) {
            if (type.empty() || !query.Matches(*relationship)) continue;
            if (source.IsFirst(*relationship)) return relationship;
            found = relationship;
            ++count;
        }
        if (count > 1) {
            Fail(std::to_string(count) + " relationships have the type " + Printable(type) +
                 ", which has no number to find one by");
        }
        return found;
    }

    [[noreturn]] void Fail(const std::string& what) const {
        throw PartError(kNoSuchPart, file_, argument_, what);
    }

    opc::Package& package_;
    const InputFile& file_;
    const std::string& argument_;
};

}  // namespace

opc::Part& FindPart(opc::Package& package, const InputFile& file, const std::string& argument) {
    return PartFinder(package, file, argument).Find(FromLocal(argument));
}

opc::Part* FindPartOrPackage(opc::Package& package, const InputFile& file,
                             const std::string& argument) {
    if (argument.empty() || argument == "/") return nullptr;
    return &FindPart(package, file, argument);
}

}  // namespace vexpa_tool
