// Target resolution against its model. An input is the source, a line, and the target.
#include "fuzz/FuzzTarget.h"
#include "tests/opc/ResolveTarget.h"
#include "tests/opc/TargetResolutionModel.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    vexpa_fuzz::Lines lines(vexpa_fuzz::Bytes(data, size));
    // Names and targets come out of documents, where there is no NUL.
    const std::u16string source = vexpa_fuzz::Units(lines.Next()).c_str();
    const std::u16string target = vexpa_fuzz::Units(lines.Rest()).c_str();
    vexpa_fuzz::Require(vexpa_test::ResolveTarget(source, target) ==
                            vexpa_test::resolution_model::ResolveSlowly(source, target),
                        "the resolution and its model agree");
    tarn::opc::ParseTargetMode(target.c_str());
    return 0;
}
