#include "tool/model/OpenFailure.h"

#include "tool/check/Check.h"
#include "tool/check/ReportText.h"

namespace vexpa_tool {

std::string WhyNotOpened(const InputFile& file) {
    CheckOptions options;
    options.isOpeningOnly = true;
    const CheckReport report = CheckPackage(file, options);
    const Finding* stop = report.Stop();
    // It may have been mended since.
    return stop == nullptr ? "it opens now" : ReasonText(*stop);
}

}  // namespace vexpa_tool
