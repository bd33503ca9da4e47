#include "tool/model/OpenFailure.h"

#include "tool/check/Check.h"

namespace vexpa_tool {

std::optional<Finding> WhyNotOpened(const InputFile& file) {
    CheckOptions options;
    options.isOpeningOnly = true;
    const CheckReport report = CheckPackage(file, options);
    const Finding* stop = report.Stop();
    return stop == nullptr ? std::nullopt : std::optional(*stop);
}

ExitStatus StatusOf(const Finding& stop) {
    return stop.id == FindingId::UnreadableFile ? kReadOrWriteError : kNotOpened;
}

}  // namespace vexpa_tool
