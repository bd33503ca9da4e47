#include "tool/check/CompoundLook.h"

#include <algorithm>
#include <cstring>
#include <new>
#include <string_view>
#include <vector>

#include "tool/check/Shown.h"
#include "tool/text/Unicode.h"
#include "vexpa/base/ComPtr.h"
#include "vexpa/base/Result.h"
#include "vexpa/platform/Runtime.h"

namespace vexpa_tool {

using tarn::ComPtr;
using tarn::Failed;

namespace {

// The storage wants the whole file in memory.
constexpr std::uint64_t kLargestFile = 256 << 20;

struct KnownStream {
    std::u16string_view name;
    FindingId id;
    const char* what;
};

constexpr KnownStream kKnownStreams[] = {
    {u"EncryptedPackage", FindingId::EncryptedPackage,
     "with EncryptedPackage (password-protected document)"},
    {u"\x0009"
     u"DRMContent",
     FindingId::EncryptedPackage, "with DRMContent (rights-managed document)"},
    {u"WordDocument", FindingId::LegacyDocument, "with WordDocument (legacy document)"},
    {u"Workbook", FindingId::LegacyDocument, "with Workbook (legacy spreadsheet)"},
    {u"Book", FindingId::LegacyDocument, "with Book (legacy spreadsheet)"},
    {u"PowerPoint Document", FindingId::LegacyDocument, "with PowerPoint Document (legacy slide show)"},
    {u"VisioDocument", FindingId::LegacyDocument, "with VisioDocument (legacy drawing)"},
    {u"Quill", FindingId::LegacyDocument, "with Quill (legacy publication)"},
    {u"CONTENTS", FindingId::LegacyDocument, "with CONTENTS (legacy document)"},
    {u"HwpSummaryInformation", FindingId::LegacyDocument, "with a legacy document of another format"},
    {u"__properties_version1.0", FindingId::OtherCompoundFile, "that is a mail message"},
    {u"_VBA_PROJECT_CUR", FindingId::LegacyDocument, "with a macro project (legacy document)"},
    {u"PROJECT", FindingId::OtherCompoundFile, "that is a macro project"},
    {u"Catalog", FindingId::OtherCompoundFile, "that is a thumbnail cache"},
    {u"\x0001Ole10Native", FindingId::OtherCompoundFile, "that is an embedded object"},
    {u"\x0001Ole", FindingId::OtherCompoundFile, "that is an embedded object"},
};

ComPtr<IStorage> OpenStorage(const Container& file) {
    ComPtr<IStorage> storage;
    const std::string bytes = file.Bytes(0, file.FileSize());
    HGBL block = _XGblAlloc(kGblZeroInit, bytes.size());
    if (block == nullptr) throw std::bad_alloc();
    std::memcpy(_XGblLock(block), bytes.data(), bytes.size());
    _XGblUnlock(block);
    _XStgOpenStorageOnHGBL2(&block, 1, storage.Out());
    return storage;
}

std::vector<std::u16string> NamesBelowRoot(IStorage& storage) {
    std::vector<std::u16string> names;
    ComPtr<IEnumSTATSTG> elements;
    if (Failed(storage.EnumElements(0, nullptr, 0, elements.Out()))) return names;
    STATSTG element{};
    while (elements->Next(1, &element, nullptr) == S_OK) {
        names.emplace_back(element.pwcsName == nullptr ? u"" : element.pwcsName);
        _XCoTaskMemFree(element.pwcsName);
    }
    return names;
}

// The first in our list that is among the names, or null.
const KnownStream* FindKnownStream(const std::vector<std::u16string>& names) {
    for (const KnownStream& known : kKnownStreams) {
        if (std::find(names.begin(), names.end(), known.name) != names.end()) return &known;
    }
    return nullptr;
}

CompoundLook UnknownKind(const std::vector<std::u16string>& names) {
    if (names.empty()) return {FindingId::OtherCompoundFile, "with nothing in it"};
    CompoundLook look;
    ShownList list;
    for (const std::u16string& name : names) {
        look.names.push_back(ToUtf8(name));
        list.Add(look.names.back());
    }
    look.what = "of a kind not known here, with " + list.Text();
    return look;
}

}  // namespace

CompoundLook LookAtCompoundFile(const Container& file) {
    if (file.FileSize() > kLargestFile)
        return {FindingId::OtherCompoundFile, "too large to look inside"};
    const ComPtr<IStorage> storage = OpenStorage(file);
    if (!storage) return {FindingId::DamagedCompoundFile, "that is damaged"};
    const std::vector<std::u16string> names = NamesBelowRoot(*storage.Get());
    const KnownStream* known = FindKnownStream(names);
    if (known == nullptr) return UnknownKind(names);
    return {known->id, known->what};
}

}  // namespace vexpa_tool
