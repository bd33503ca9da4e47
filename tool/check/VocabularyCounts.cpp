#include "tool/check/VocabularyCounts.h"

#include "runtime/zip/NameHash.h"
#include "tool/check/Shown.h"
#include "tool/text/Unicode.h"

namespace vexpa_tool {

namespace {

constexpr std::size_t kMostNames = 50'000;  // kept of one package
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
    return vexpa_runtime::zip::HashName(name, vexpa_runtime::zip::ProcessHashKey());
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
    switch (StandingOf(key_, uri, name)) {
        case Standing::Known:
            return;
        case Standing::UnknownNamespace:
            namespaces_.Add(uri.empty() ? "none" : uri);
            return;
        case Standing::UnknownName:
            names_.Add(name);
            return;
    }
}

VocabularyCounts::Standing VocabularyCounts::StandingOf(const std::string& key, std::string_view uri,
                                                        std::string_view name) {
    const auto known = standings_.find(key);
    if (known != standings_.end()) return known->second;
    const Standing standing = LookUp(uri, name);
    if (standings_.size() < kMostNames) standings_.emplace(key, standing);
    return standing;
}

VocabularyCounts::Standing VocabularyCounts::LookUp(std::string_view uri, std::string_view name) const {
    const std::u16string wideUri = FromUtf8(uri);
    if (vocabulary_.CountNames(wideUri) == 0) return Standing::UnknownNamespace;
    const auto token = vocabulary_.FindToken(wideUri, FromUtf8(name));
    return token.value_or(0) == 0 ? Standing::UnknownName : Standing::Known;
}

void VocabularyCounts::Report(Findings& findings) const {
    if (!namespaces_.IsEmpty()) {
        findings.Add(FindingId::UnknownNamespaces, [this](Finding& finding) {
            finding.cause = Counted(namespaces_.Words(), "namespace", "namespaces") +
                            " outside the vocabulary: " + namespaces_.Text(kMostWords);
        });
    }
    if (names_.IsEmpty()) return;
    findings.Add(FindingId::UnknownNames, [this](Finding& finding) {
        finding.cause = Counted(names_.Words(), "name", "names") +
                        " of known namespaces outside the vocabulary: " + names_.Text(kMostWords);
    });
}

}  // namespace vexpa_tool
