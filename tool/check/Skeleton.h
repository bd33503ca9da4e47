// tool/check/Skeleton.h - what the library would make of a package that it does not open.
#ifndef VEXPA_TOOL_CHECK_SKELETON_H_
#define VEXPA_TOOL_CHECK_SKELETON_H_

#include <memory>
#include <string>

#include "tool/check/RelationshipScan.h"
#include "tool/container/Container.h"
#include "vexpa/opc/Package.h"

namespace vexpa_tool {

// A refused package has no objects to ask, yet whoever mends it wants to know what else is wrong.
// So the library is given a stand-in that opens: an archive in memory with all the names, the
// content types and the relationships of the package, and as last package relationship one that
// leads to a part. What the library answers about it, it would answer about the package mended.
//
// Parts are there, but empty.
class Skeleton {
public:
    // Null when the container has no directory, is larger than a stand-in may get, or is
    // not told of to its end.
    static std::unique_ptr<Skeleton> Make(const std::string& path, const Container& container,
                                          const RelationshipScan& relationships);

    ~Skeleton();
    Skeleton(const Skeleton&) = delete;
    Skeleton& operator=(const Skeleton&) = delete;

    tarn::opc::Package& Package() const { return *package_; }

    // Whether this is the relationship that was added, or the part that it leads to.
    static bool IsAdded(const tarn::opc::Relationship& relationship);
    static bool IsAdded(const tarn::opc::Part& part);

private:
    Skeleton() = default;

    int memory_ = -1;
    tarn::Handle<tarn::opc::Package> package_;
};

}  // namespace vexpa_tool

#endif  // VEXPA_TOOL_CHECK_SKELETON_H_
