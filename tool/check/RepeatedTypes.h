// tool/check/RepeatedTypes.h - VX402: types of which several relationships stand with one source.
#ifndef VEXPA_TOOL_CHECK_REPEATEDTYPES_H_
#define VEXPA_TOOL_CHECK_REPEATEDTYPES_H_

#include <cstdint>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "tool/check/CheckedSources.h"
#include "tool/check/Findings.h"

namespace vexpa_tool {

// Types that the library has a number for; letter case does not matter to the look-up.
class RepeatedTypes {
public:
    // The source has to stay.
    void Look(const CheckedSource& source);

    void Report(Findings& findings) const;

private:
    // A source with several relationships of a type.
    struct Use {
        const CheckedSource* source;
        std::uint64_t count;
    };
    using Uses = std::vector<Use>;

    void Add(const CheckedSource& source, const tarn::opc::Relationship& first, std::uint64_t count);
    static std::string UsesText(const Uses& uses, bool isSourceKnown);
    const CheckedSource* OnlySource() const;

    std::map<tarn::opc::RelationshipTypeId, std::string> words_;  // as it is spelled first
    // Two types may end in the same word.
    std::map<std::pair<std::string, tarn::opc::RelationshipTypeId>, Uses> types_;
};

}  // namespace vexpa_tool

#endif  // VEXPA_TOOL_CHECK_REPEATEDTYPES_H_
