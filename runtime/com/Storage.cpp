#include "runtime/com/Storage.h"

#include <gsf/gsf-infile-msole.h>
#include <gsf/gsf-input-memory.h>
#include <gsf/gsf-utils.h>

#include <utility>

#include "runtime/Guarded.h"
#include "runtime/com/CompoundCheck.h"
#include "runtime/com/GsfSilence.h"
#include "runtime/com/StorageEnumerator.h"
#include "runtime/com/StorageStream.h"

namespace vexpa_runtime {

namespace {

// A call that would make an element: refused, once its arguments are sound.
template <class Interface>
HRESULT RefuseToCreate(const char16_t* name, Interface** out) {
    if (out == nullptr) return E_INVALIDARG;
    *out = nullptr;
    return name == nullptr ? E_INVALIDARG : E_ACCESSDENIED;
}

GsfPtr<GsfInfile> OpenRoot(std::span<const std::byte> bytes) {
    static const bool initialized = (gsf_init(), true);
    static_cast<void>(initialized);

    const GsfSilence silence;
    const GsfPtr<GsfInput> input(gsf_input_memory_new(reinterpret_cast<const guint8*>(bytes.data()),
                                                      static_cast<gsf_off_t>(bytes.size()), FALSE));
    return GsfPtr<GsfInfile>(input ? gsf_infile_msole_new(input.get(), nullptr) : nullptr);
}

}  // namespace

Storage::Storage(std::shared_ptr<const CompoundFile> file, GsfPtr<GsfInfile> storage,
                 std::u16string name)
    : file_(std::move(file)), storage_(std::move(storage)), name_(std::move(name)) {}

const std::shared_ptr<const StorageElements>& Storage::Elements() {
    if (!elements_) elements_ = std::make_shared<const StorageElements>(storage_.get());
    return elements_;
}

HRESULT Storage::OpenStream(const char16_t* name, void*, std::uint32_t, std::uint32_t, IStream** out) {
    if (out == nullptr) return E_INVALIDARG;
    *out = nullptr;
    if (name == nullptr) return E_INVALIDARG;
    return Guarded([&] {
        const StorageElement* element = Elements()->Find(name, STGTY_STREAM);
        if (element == nullptr) return STG_E_FILENOTFOUND;
        GsfPtr<GsfInput> input = OpenElement(storage_.get(), element->index);
        if (!input) return E_FAIL;
        *out = new StorageStream(std::make_shared<const OpenedStream>(
            OpenedStream{file_, std::move(input), element->name, element->stat}));
        return S_OK;
    });
}

HRESULT Storage::OpenStorage(const char16_t* name, IStorage*, std::uint32_t, char16_t**, std::uint32_t,
                             IStorage** out) {
    if (out == nullptr) return E_INVALIDARG;
    *out = nullptr;
    if (name == nullptr) return E_INVALIDARG;
    return Guarded([&] {
        const StorageElement* element = Elements()->Find(name, STGTY_STORAGE);
        if (element == nullptr) return STG_E_FILENOTFOUND;
        GsfPtr<GsfInput> input = OpenElement(storage_.get(), element->index);
        if (!input) return E_FAIL;
        *out = new Storage(file_, GsfPtr<GsfInfile>(GSF_INFILE(input.release())), element->name);
        return S_OK;
    });
}

HRESULT Storage::EnumElements(std::uint32_t, void*, std::uint32_t, IEnumSTATSTG** out) {
    if (out == nullptr) return E_INVALIDARG;
    *out = nullptr;
    return Guarded([&] {
        *out = new StorageEnumerator(Elements());
        return S_OK;
    });
}

HRESULT Storage::Stat(STATSTG* stat, std::uint32_t flags) {
    if (stat == nullptr) return E_INVALIDARG;
    return CopyStat(DescribeElement(GSF_INPUT(storage_.get())), name_, flags, stat);
}

HRESULT Storage::CreateStream(const char16_t* name, std::uint32_t, std::uint32_t, std::uint32_t,
                              IStream** out) {
    return RefuseToCreate(name, out);
}

HRESULT Storage::CreateStorage(const char16_t* name, std::uint32_t, std::uint32_t, std::uint32_t,
                               IStorage** out) {
    return RefuseToCreate(name, out);
}

HRESULT Storage::CopyTo(std::uint32_t, const GUID*, char16_t**, IStorage*) {
    return E_ACCESSDENIED;
}

HRESULT Storage::MoveElementTo(const char16_t*, IStorage*, const char16_t*, std::uint32_t) {
    return E_ACCESSDENIED;
}

HRESULT Storage::DestroyElement(const char16_t*) {
    return E_ACCESSDENIED;
}

HRESULT Storage::RenameElement(const char16_t*, const char16_t*) {
    return E_ACCESSDENIED;
}

HRESULT Storage::SetElementTimes(const char16_t*, const FILETIME*, const FILETIME*, const FILETIME*) {
    return E_ACCESSDENIED;
}

HRESULT Storage::SetClass(const GUID&) {
    return E_ACCESSDENIED;
}

HRESULT Storage::SetStateBits(std::uint32_t, std::uint32_t) {
    return E_ACCESSDENIED;
}

}  // namespace vexpa_runtime

HRESULT _XStgOpenStorageOnHGBL2(HGBL* block, int freeOnRelease, IStorage** out) {
    using namespace vexpa_runtime;
    return Guarded([&] {
        if (out != nullptr) *out = nullptr;
        if (block == nullptr) return E_INVALIDARG;
        SharedBlock shared = ShareBlock(*block, freeOnRelease != 0);
        if (out == nullptr) return E_INVALIDARG;
        if (!shared) return E_FAIL;

        const auto file = std::make_shared<const CompoundFile>(std::move(shared));
        if (!IsSoundCompoundFile(file->Bytes())) return E_FAIL;
        GsfPtr<GsfInfile> root = OpenRoot(file->Bytes());
        if (!root) return E_FAIL;
        *out = new Storage(file, std::move(root), {});
        return S_OK;
    });
}
