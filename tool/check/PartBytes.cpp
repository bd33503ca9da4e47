#include "tool/check/PartBytes.h"

#include "tool/check/EntryBytes.h"

namespace vexpa_tool {

bool PartBytes::Read(tarn::opc::Part& part, const std::string& entry, const ByteSink& sink) {
    if (subject_.Opens()) return reader_.Read(part, sink);
    const auto bytes = EntryBytes::Extract(subject_.file.path, entry);
    if (!bytes) return false;
    sink(bytes->Text().data(), bytes->Text().size());
    return true;
}

bool PartBytes::IsStorage(tarn::opc::Part& part, const std::string& entry) {
    if (subject_.Opens()) return reader_.OpensAsStorage(part);
    const auto bytes = EntryBytes::Extract(subject_.file.path, entry);
    return bytes && bytes->OpenStorage();
}

}  // namespace vexpa_tool
