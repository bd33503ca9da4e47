// tool/check/PartBytes.h - the parts of a package one after the other, and their data.
#ifndef VEXPA_TOOL_CHECK_PARTBYTES_H_
#define VEXPA_TOOL_CHECK_PARTBYTES_H_

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

#include "tool/check/Subject.h"

namespace vexpa_tool {

// Of a package that opens, the library hands out parts, streams and storages. Of one that does not,
// the parts are those of its stand-in, and for the data the same calls of the platform are made.
//
// A package keeps every part that was asked for, and its bytes; there may be a million. So the
// parts come from a package that is given up and opened again now and then.
class PartBytes {
public:
    explicit PartBytes(const Subject& subject) : subject_(subject) {}

    // [borrowed] Good until the next call.
    tarn::opc::Part* Find(const std::string& entry);

    // Of the part that was found last. False when the data cannot be had, or ends early.
    bool Read(tarn::opc::Part& part, const std::function<void(std::string_view piece)>& sink);

    // Whether it can be opened as a compound file.
    bool IsStorage(tarn::opc::Part& part);

private:
    const Subject& subject_;
    tarn::Handle<tarn::opc::Package> package_;
    std::uint64_t keptParts_ = 0;
    std::uint64_t keptBytes_ = 0;
    std::string entry_;
};

}  // namespace vexpa_tool

#endif  // VEXPA_TOOL_CHECK_PARTBYTES_H_
