// Target resolution against its model. An input is the source, a line, and the target.
#include "fuzz/FuzzTarget.h"
#include "tests/opc/ResolveTarget.h"
#include "tests/opc/TargetResolutionModel.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    vexpa_fuzz::Lines lines(vexpa_fuzz::Bytes(data, size));
    // Names and targets come out of documents, where there is no NUL.
    const auto beforeNul = [](const std::u16string& units) {
        return units.substr(0, units.find(u'\0'));
    };
    const std::u16string source = beforeNul(vexpa_fuzz::Units(lines.Next()));
    const std::u16string target = beforeNul(vexpa_fuzz::Units(lines.Rest()));
    vexpa_fuzz::Require(vexpa_test::ResolveTarget(source, target) ==
                            vexpa_test::resolution_model::ResolveSlowly(source, target),
                        "the resolution and its model agree");
    tarn::opc::ParseTargetMode(target.c_str());
    return 0;
}
