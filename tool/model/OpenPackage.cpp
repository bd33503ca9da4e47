#include "tool/model/OpenPackage.h"

#include <optional>

#include "tool/check/ReportText.h"
#include "tool/model/OpenFailure.h"
#include "tool/text/Local.h"

namespace vexpa_tool {

namespace opc = tarn::opc;

tarn::Handle<opc::Package> FindPackage(const InputFile& file) {
    return opc::Package::Open(FromLocal(file.path).c_str());
}

tarn::Handle<opc::Package> OpenPackage(const InputFile& file) {
    tarn::Handle<opc::Package> package = FindPackage(file);
    if (!package) throw NotOpened(file);
    return package;
}

NotOpenedError NotOpened(const InputFile& file) {
    if (const std::optional<Finding> stop = WhyNotOpened(file)) return NotOpened(file, *stop);
    // It may have been mended since.
    return NotOpenedError(kNotOpened, PrintableLocal(file.name) + ": does not open: it opens now");
}

NotOpenedError NotOpened(const InputFile& file, const Finding& stop) {
    const ExitStatus status = StatusOf(stop);
    // Of what cannot be read nothing is known, not even whether it is a package.
    const std::string what =
        status == kReadOrWriteError ? stop.cause : "does not open: " + ReasonText(stop);
    return NotOpenedError(status, PrintableLocal(file.name) + ": " + what);
}

ToolError PartError(ExitStatus status, const InputFile& file, const std::string& part,
                    const std::string& what) {
    return ToolError(status, PrintableLocal(file.name) + ": " + PrintableLocal(part) + ": " + what);
}

}  // namespace vexpa_tool
