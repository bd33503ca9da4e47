// tool/check/VocabularyCounts.h - the names of parts that the library has no token for.
#ifndef VEXPA_TOOL_CHECK_VOCABULARYCOUNTS_H_
#define VEXPA_TOOL_CHECK_VOCABULARYCOUNTS_H_

#include <cstddef>
#include <string>
#include <string_view>
#include <unordered_map>

#include "tool/check/Findings.h"
#include "tool/check/WordCounts.h"
#include "tool/check/XmlScan.h"
#include "tool/model/Vocabulary.h"

namespace vexpa_tool {

class VocabularyCounts {
public:
    explicit VocabularyCounts(const Vocabulary& vocabulary) : vocabulary_(vocabulary) {}

    // Names resolved. An attribute without a prefix belongs to the namespace of its element.
    void Count(const XmlStartTag& tag);

    // VX701 and VX702
    void Report(Findings& findings) const;

private:
    enum class Standing { Known, UnknownNamespace, UnknownName };
    struct Name {
        Standing standing;
        std::string word;  // under which it is counted
    };
    // Whoever writes a document chooses its names, so the hash has a key of the process.
    struct Hash {
        std::size_t operator()(const std::string& name) const;
    };

    void CountName(std::string_view uri, std::string_view name);
    Name LookUp(std::string_view uri, std::string_view name) const;

    const Vocabulary& vocabulary_;
    std::unordered_map<std::string, Name, Hash> known_;  // by URI and name
    std::string key_;                                    // its memory is used again for every name
    WordCounts namespaces_;
    WordCounts names_;
};

}  // namespace vexpa_tool

#endif  // VEXPA_TOOL_CHECK_VOCABULARYCOUNTS_H_
