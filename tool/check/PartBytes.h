// tool/check/PartBytes.h - the data of parts, also of those that stand in for refused ones.
#ifndef VEXPA_TOOL_CHECK_PARTBYTES_H_
#define VEXPA_TOOL_CHECK_PARTBYTES_H_

#include <string>

#include "tool/check/Subject.h"
#include "tool/model/PartReader.h"

namespace vexpa_tool {

// Of a package that opens, the library hands out streams and storages. Of one that does not, the
// same calls of the platform are made on its archive.
class PartBytes {
public:
    explicit PartBytes(const Subject& subject) : subject_(subject), reader_(subject.file) {}

    // False when the data cannot be had, or ends early.
    bool Read(tarn::opc::Part& part, const std::string& entry, const ByteSink& sink);

    // Whether it can be opened as a compound file.
    bool IsStorage(tarn::opc::Part& part, const std::string& entry);

private:
    const Subject& subject_;
    PartReader reader_;
};

}  // namespace vexpa_tool

#endif  // VEXPA_TOOL_CHECK_PARTBYTES_H_
