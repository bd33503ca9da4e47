#include "tool/model/OpenPackage.h"

#include "tool/model/OpenFailure.h"
#include "tool/text/Local.h"

namespace vexpa_tool {

namespace opc = tarn::opc;

tarn::Handle<opc::Package> FindPackage(const std::string& file) {
    return opc::Package::Open(FromLocal(file).c_str());
}

tarn::Handle<opc::Package> OpenPackage(const std::string& file) {
    tarn::Handle<opc::Package> package = FindPackage(file);
    if (!package) throw NotOpened(file);
    return package;
}

ToolError NotOpened(const std::string& file) {
    return ToolError(kNotOpened, PrintableLocal(file) + ": does not open: " + WhyNotOpened(file));
}

opc::Part& OpenPart(opc::Package& package, const std::string& file, const std::string& part) {
    const opc::PartUri name(FromLocal(part).c_str());
    opc::Part* found = package.GetPart(name);
    if (found == nullptr) throw PartError(kNoSuchPart, file, part, "no such part");
    return *found;
}

ToolError PartError(ExitStatus status, const std::string& file, const std::string& part,
                    const std::string& what) {
    return ToolError(status, PrintableLocal(file) + ": " + PrintableLocal(part) + ": " + what);
}

}  // namespace vexpa_tool
