// A program outside of the tree: what its author knows is what is installed. It uses a call of
// each library, an inline function of each kind, and what callers derive from.

#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <string>

#include "vexpa/base/ComPtr.h"
#include "vexpa/base/Lifecycle.h"
#include "vexpa/opc/Package.h"
#include "vexpa/platform/Runtime.h"
#include "vexpa/xmlfx/Transform.h"
#include "vexpa/xmlfx/XmlAttrBuilder.h"
#include "vexpa/xmlfx/XmlMapper.h"

using namespace tarn;

namespace {

std::string Narrow(const unsigned short* text) {
    return std::filesystem::path(CopyText(text)).string();
}

void ListParts(opc::Package& package, opc::Part& document) {
    std::printf("%s\n", Narrow(document.GetContentType()).c_str());
    for (const auto& [id, relationship] : document.GetRelationships()) {
        opc::Part* part = package.GetPart(relationship->GetResolvedTarget());
        std::printf("%s %s\n", Narrow(relationship->GetId()).c_str(),
                    part == nullptr ? "-" : Narrow(ToUnits(part->GetName().name.c_str())).c_str());
    }
}

// Out of memory that the platform gave and takes back.
void ReadStart(opc::Part& document) {
    ComPtr<IStream> stream;
    if (Failed(document.GetStream(stream.Out()))) return;
    constexpr std::uint32_t kSize = 38;
    void* text = _XCoTaskMemAlloc(kSize);
    std::uint32_t read = 0;
    stream->Read(text, kSize, &read);
    std::printf("%.*s\n", static_cast<int>(read), static_cast<const char*>(text));
    _XCoTaskMemFree(text);
}

struct PrintToken : xmlfx::XmlAttrCallback {
    void OnElement(std::uint32_t token, xmlfx::XmlRoAttr* set) override {
        const xmlfx::XmlRoAttr* text = set->Find(xmlfx::kTextToken);
        std::printf("%08X %s\n", token, text == nullptr ? "-" : Narrow(text->GetValue()).c_str());
    }
};

void BuildElement() {
    const xmlfx::NSMap& namespaces = xmlfx::XmlMapper::GetNSMap();
    const auto word = namespaces.find(u"http://schemas.openxmlformats.org/wordprocessingml/2006/main");
    if (word == namespaces.end()) return;
    const std::uint32_t paragraph = word->second.find(u"p")->second;

    PrintToken callback;
    const Handle<xmlfx::XmlAttrBuilder> builder = xmlfx::XmlAttrBuilder::New(&callback);
    const Handle<xmlfx::XmlRoAttr> empty = xmlfx::Transform(nullptr, nullptr, nullptr);
    builder->StartElement(paragraph, empty.Get());
    builder->Characters(ToUnits(u"text"));
    builder->EndElement(paragraph);
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 2) return 2;
    const Library library;
    const Handle<opc::Package> package =
        opc::Package::Open(std::filesystem::path(argv[1]).u16string().c_str());
    if (!package) return 3;
    opc::Relationship* start = package->GetRelationshipByType(opc::RelTypeOfficeDocument);
    opc::Part* document = start == nullptr ? nullptr : package->GetPart(start->GetResolvedTarget());
    if (document == nullptr) return 4;
    ListParts(*package, *document);
    ReadStart(*document);
    BuildElement();
}
