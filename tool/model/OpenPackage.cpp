#include "tool/model/OpenPackage.h"

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

ToolError NotOpened(const InputFile& file) {
    return ToolError(kNotOpened, PrintableLocal(file.name) + ": does not open: " + WhyNotOpened(file));
}

ToolError PartError(ExitStatus status, const InputFile& file, const std::string& part,
                    const std::string& what) {
    return ToolError(status, PrintableLocal(file.name) + ": " + PrintableLocal(part) + ": " + what);
}

}  // namespace vexpa_tool
