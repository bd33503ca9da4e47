#include "tool/check/VocabularyCounts.h"

#include "runtime/zip/NameHash.h"
#include "tool/check/Shown.h"
#include "tool/model/NamespacePrefixes.h"
#include "tool/text/Unicode.h"

namespace vexpa_tool {

namespace {

constexpr std::size_t kMostNames = 50'000;  // kept at a time
constexpr std::size_t kMostWords = 5;

std::string_view UriOf(std::string_view name) {
    const std::size_t end = name.rfind(XmlScan::kNamespaceEnd);
    return end == name.npos ? std::string_view() : name.substr(0, end);
}

std::string_view LocalOf(std::string_view name) {
    return name.substr(name.rfind(XmlScan::kNamespaceEnd) + 1);  // npos + 1 is 0
}

}  // namespace

std::size_t VocabularyCounts::Hash::operator()(const std::string& name) const {
    return vexpa_runtime::zip::HashName(name, vexpa_runtime::ProcessKey());
}

void VocabularyCounts::Count(const XmlStartTag& tag) {
    const std::string_view uri = UriOf(tag.name);
    CountName(uri, LocalOf(tag.name));
    for (const char* const* at = tag.attributes; *at != nullptr; at += 2) {
        const std::string_view own = UriOf(*at);
        CountName(own.empty() ? uri : own, LocalOf(*at));
    }
}

void VocabularyCounts::CountName(std::string_view uri, std::string_view name) {
    key_.assign(uri).push_back(XmlScan::kNamespaceEnd);
    key_.append(name);
    auto known = known_.find(key_);
    if (known == known_.end()) {
        if (known_.size() == kMostNames) known_.clear();
        known = known_.emplace(key_, LookUp(uri, name)).first;
    }
    if (known->second.standing == Standing::UnknownNamespace) namespaces_.Add(known->second.word);
    if (known->second.standing == Standing::UnknownName) names_.Add(known->second.word);
}

VocabularyCounts::Name VocabularyCounts::LookUp(std::string_view uri, std::string_view name) const {
    const std::u16string wideUri = FromUtf8(uri);
    if (IsXmlNamespace(wideUri)) return {Standing::Known, {}};
    if (vocabulary_.CountNames(wideUri) == 0) {
        return {Standing::UnknownNamespace, std::string(uri)};
    }
    const auto token = vocabulary_.FindToken(wideUri, FromUtf8(name));
    if (token.value_or(0) != 0) return {Standing::Known, {}};
    // Several prefixes stand for no namespace.
    const std::string prefix = uri.empty() ? "" : ToUtf8(PrefixOf(wideUri, 0));
    return {Standing::UnknownName, (prefix.empty() ? "" : prefix + ":") + std::string(name)};
}

void VocabularyCounts::Report(Findings& findings) const {
    if (!namespaces_.IsEmpty()) {
        findings.Add(FindingId::UnknownNamespaces, [&](Finding& finding) {
            finding.cause = namespaces_.WordsText("namespace", "namespaces") +
                            " outside the vocabulary: " + namespaces_.Text(kMostWords);
            finding.namesAllItems = namespaces_.IsWhole(kMostWords);
            namespaces_.AddItems(findings, finding);
        });
    }
    if (names_.IsEmpty()) return;
    findings.Add(FindingId::UnknownNames, [&](Finding& finding) {
        finding.cause = names_.WordsText("name", "names") +
                        " of known namespaces outside the vocabulary: " + names_.Text(kMostWords);
        finding.namesAllItems = names_.IsWhole(kMostWords);
        names_.AddItems(findings, finding);
    });
}

}  // namespace vexpa_tool
