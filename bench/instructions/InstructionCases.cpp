// Fixed pieces of work whose instructions are counted under callgrind.
//
//     instruction_cases DOCUMENT PACKAGE
//
// Each case runs once before it is counted, so that what is built on first use is not. Without
// callgrind around it the program does the same and counts nothing.

#include <valgrind/callgrind.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <functional>
#include <string>
#include <unordered_set>
#include <vector>

#include "vexpa/base/ComPtr.h"
#include "vexpa/base/Lifecycle.h"
#include "vexpa/opc/Package.h"
#include "vexpa/platform/Runtime.h"
#include "vexpa/xmlfx/Transform.h"
#include "vexpa/xmlfx/XmlAttrBuilder.h"
#include "vexpa/xmlfx/XmlMapper.h"

namespace {

using namespace tarn;

constexpr char16_t kWordprocessing[] = u"http://schemas.openxmlformats.org/wordprocessingml/2006/main";
constexpr std::size_t kPiece = 64 * 1024;

std::size_t ReadPart(opc::Part& part) {
    static std::vector<char> piece(kPiece);
    ComPtr<IStream> stream;
    if (part.GetStream(stream.Out()) != S_OK) return 0;
    std::size_t size = 0;
    std::uint32_t got = 0;
    do {
        stream->Read(piece.data(), kPiece, &got);
        size += got;
    } while (got == kPiece);
    return size;
}

// Answers the number of parts, for nothing may be counted that did not work.
std::size_t OpenWalkRead(const std::string& file) {
    const std::u16string path = std::filesystem::path(file).u16string();
    const Handle<opc::Package> package = opc::Package::Open(path.c_str());
    if (!package) return 0;
    std::unordered_set<opc::Part*> seen;
    std::vector<const opc::RelationshipMap*> open{&package->GetRelationships()};
    while (!open.empty()) {
        const opc::RelationshipMap& relationships = *open.back();
        open.pop_back();
        for (const auto& [id, relationship] : relationships) {
            if (relationship->GetTargetMode() == opc::TargetModeExternal) continue;
            opc::Part* part = package->GetPart(relationship->GetResolvedTarget());
            if (part == nullptr || !seen.insert(part).second) continue;
            ReadPart(*part);
            open.push_back(&part->GetRelationships());
        }
    }
    return seen.size();
}

std::size_t Extract(std::string file, std::string entry) {
    UzpOpts options{};
    UzpCB callbacks{};
    callbacks.structlen = sizeof callbacks;
    UzpBuffer bytes{};
    const int found = UzpUnzipToMemory(file.data(), entry.data(), &options, &callbacks, &bytes);
    std::free(bytes.strptr);
    return found != 0;
}

// Another name each time: what one costs depends on the hash key, which every process draws.
std::size_t MissOne(const std::string& file) {
    static int number = 0;
    return 1 - Extract(file, "absent" + std::to_string(++number) + ".xml");
}

std::size_t LookUpAll() {
    std::size_t found = 0;
    const xmlfx::NSMap& map = xmlfx::XmlMapper::GetNSMap();
    for (const auto& [base, names] : xmlfx::XmlMapper::GetNSMapInverse()) {
        for (const auto& [token, info] : names) {
            const auto inner = map.find(info.uri);
            if (inner != map.end()) found += inner->second.find(info.name) != inner->second.end();
        }
    }
    return found;
}

class ThreeAttributes final : public xmlfx::Attributes {
public:
    unsigned int getLength() const override { return 3; }
    const unsigned short* getURI(unsigned int) const override { return ToUnits(kWordprocessing); }
    const unsigned short* getLocalName(unsigned int i) const override { return ToUnits(kNames[i]); }
    const unsigned short* getQName(unsigned int) const override { return nullptr; }
    const unsigned short* getType(unsigned int) const override { return nullptr; }
    const unsigned short* getValue(unsigned int i) const override { return ToUnits(kValues[i]); }

private:
    static constexpr const char16_t* kNames[] = {u"val", u"rsidR", u"ascii"};
    static constexpr const char16_t* kValues[] = {u"left", u"00A77B3E", u"Times New Roman"};
};

std::size_t TransformThree() {
    const ThreeAttributes attributes;
    const Handle<xmlfx::XmlRoAttr> set =
        xmlfx::Transform(&attributes, ToUnits(kWordprocessing), nullptr);
    return set ? 1 : 0;
}

class Collector : public xmlfx::XmlAttrCallback {
public:
    void OnElement(std::uint32_t, xmlfx::XmlRoAttr* reported) override { set = reported->Share(); }
    Handle<xmlfx::XmlRoAttr> set;
};

// A thousand elements with text, and the release of their tree.
std::size_t BuildTree() {
    const Handle<xmlfx::XmlRoAttr> attributes = xmlfx::Transform(ToUnits(u"center"), 5);
    Collector collector;
    Handle<xmlfx::XmlAttrBuilder> builder = xmlfx::XmlAttrBuilder::New(&collector);
    builder->StartElement(6, attributes.Get());
    xmlfx::XmlAttrHandler* child = builder->GetChildHandler();
    for (int i = 0; i < 1'000; ++i) {
        child->StartElement(7, attributes.Get());
        child->Characters(ToUnits(u"High water stood at 4.2 m"));
        child->EndElement(7);
    }
    builder->EndElement(6);
    return collector.set ? 1 : 0;
}

struct Case {
    const char* name;
    int times;
    std::function<std::size_t()> run;
};

std::vector<Case> Cases(const std::string& document, const std::string& package) {
    return {
        {"document: open, walk, read", 1, [=] { return OpenWalkRead(document); }},
        {"100 parts: open, walk, read", 1, [=] { return OpenWalkRead(package); }},
        {"one extraction, 100 times", 100, [=] { return Extract(document, "_rels/.rels"); }},
        {"100 absent names", 100, [=] { return MissOne(document); }},
        {"initialize and terminate", 1,
         [] {
             _vexpa_Terminate();
             return std::size_t{_vexpa_Initialize() == 0};
         }},
        {"look-up of every name", 1, LookUpAll},
        {"transform of 3 attributes, 100 times", 100, TransformThree},
        {"build and release a tree of 1,000", 1, BuildTree},
    };
}

bool RunAll(const Case& one) {
    bool worked = true;
    for (int i = 0; i < one.times; ++i) worked = one.run() != 0 && worked;
    return worked;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 3) return 2;
    _vexpa_Initialize();
    for (const Case& one : Cases(argv[1], argv[2])) {
        bool worked = RunAll(one);
        CALLGRIND_ZERO_STATS;
        worked = RunAll(one) && worked;
        CALLGRIND_DUMP_STATS_AT(one.name);
        if (!worked) {
            std::fprintf(stderr, "failed: %s\n", one.name);
            return 1;
        }
    }
    _vexpa_Terminate();
    return 0;
}
