#include "tests/support/FaultRuntime.h"

#include <algorithm>
#include <cerrno>
#include <cstdlib>

#include "vexpa/platform/Runtime.h"

namespace vexpa_test {

namespace {
FaultRuntime* g_active = nullptr;
}

FaultRuntime::FaultRuntime() {
    g_active = this;
}

FaultRuntime::~FaultRuntime() {
    g_active = nullptr;
    for (void* buffer : buffers_) std::free(buffer);
}

FaultRuntime* FaultRuntime::Active() {
    return g_active;
}

void FaultRuntime::FailCall(std::size_t n) {
    failAt_ = fallible_ + n;
}

void FaultRuntime::FailCall(const std::string& name, std::size_t n) {
    failName_ = name;
    failNameAt_ = counts_[name] + n;
}

void FaultRuntime::AnswerParse(std::size_t n, std::int32_t result) {
    answerParseAt_ = parses_ + n;
    parseResult_ = result;
    parseGivesDocument_ = false;
}

void FaultRuntime::AnswerParseWithDocument(std::size_t n, std::int32_t result) {
    AnswerParse(n, result);
    parseGivesDocument_ = true;
}

const std::int32_t* FaultRuntime::ParseAnswer() {
    return ++parses_ == answerParseAt_ ? &parseResult_ : nullptr;
}

std::size_t FaultRuntime::Count(const std::string& call) const {
    return static_cast<std::size_t>(std::count(calls_.begin(), calls_.end(), call));
}

bool FaultRuntime::Fails(const std::string& name, const std::string& detail) {
    calls_.push_back(detail.empty() ? name : name + "(" + detail + ")");
    ++fallible_;
    ++counts_[name];
    const bool fails = fallible_ == failAt_ || (name == failName_ && counts_[name] == failNameAt_);
    if (fails) failedCall_ = name;
    return fails;
}

void FaultRuntime::Note(const std::string& name) {
    calls_.push_back(name);
}

void FaultRuntime::OnCallbacks(const UzpCB& callbacks) {
    unsigned char message[] = "a message";
    callbacksLength_ = callbacks.structlen;
    messageAnswer_ = callbacks.msgfn(nullptr, message, sizeof message - 1, 0);
}

void FaultRuntime::OnBuffer(void* bytes) {
    if (bytes != nullptr) buffers_.insert(bytes);
}

void FaultRuntime::OnFree(void* memory) {
    if (buffers_.erase(memory) != 0) calls_.emplace_back("free");
}

}  // namespace vexpa_test

namespace {

using vexpa_test::FaultRuntime;

bool Fails(const char* name, const std::string& detail = {}) {
    FaultRuntime* faults = FaultRuntime::Active();
    return faults != nullptr && faults->Fails(name, detail);
}

}  // namespace

// Visible, as the linker sees shared libraries refer to the wrapped names, too.
#define VEXPA_WRAPPED(result, name, ...) \
    result __real_##name(__VA_ARGS__);   \
    __attribute__((visibility("default"))) result __wrap_##name(__VA_ARGS__)

extern "C" {

VEXPA_WRAPPED(HGBL, _XGblAlloc, std::uint32_t flags, std::size_t size) {
    return Fails("_XGblAlloc") ? nullptr : __real__XGblAlloc(flags, size);
}

VEXPA_WRAPPED(void*, _XGblLock, HGBL block) {
    return Fails("_XGblLock") ? nullptr : __real__XGblLock(block);
}

VEXPA_WRAPPED(int, _XGblUnlock, HGBL block) {
    if (FaultRuntime::Active() != nullptr) FaultRuntime::Active()->Note("_XGblUnlock");
    return __real__XGblUnlock(block);
}

VEXPA_WRAPPED(int, vmemcpy_s, void* destination, std::size_t size, const void* source,
              std::size_t count) {
    return Fails("vmemcpy_s") ? EINVAL : __real_vmemcpy_s(destination, size, source, count);
}

VEXPA_WRAPPED(void*, _XCoTaskMemAlloc, std::size_t size) {
    return Fails("_XCoTaskMemAlloc") ? nullptr : __real__XCoTaskMemAlloc(size);
}

// A failing call still ends a block that it was given.
VEXPA_WRAPPED(HRESULT, _XCreateStreamOnHGBL, HGBL block, int freeOnRelease, IStream** out) {
    const bool fails = Fails("_XCreateStreamOnHGBL");
    const HRESULT result = __real__XCreateStreamOnHGBL(block, freeOnRelease, out);
    if (!fails || result < 0) return result;
    (*out)->Release();
    *out = nullptr;
    return E_OUTOFMEMORY;
}

VEXPA_WRAPPED(HRESULT, _XStgOpenStorageOnHGBL2, HGBL* block, int freeOnRelease, IStorage** out) {
    const bool fails = Fails("_XStgOpenStorageOnHGBL2");
    const HRESULT result = __real__XStgOpenStorageOnHGBL2(block, freeOnRelease, out);
    if (!fails || result < 0) return result;
    (*out)->Release();
    *out = nullptr;
    return E_OUTOFMEMORY;
}

VEXPA_WRAPPED(HRESULT, _XDOMParse, IDomDocument** out, IStream* stream, std::uint32_t options,
              std::uint32_t reserved1, std::uint32_t reserved2, std::uint32_t reserved3) {
    const bool fails = Fails("_XDOMParse");
    const std::int32_t* answer =
        FaultRuntime::Active() == nullptr ? nullptr : FaultRuntime::Active()->ParseAnswer();
    if (!fails && answer != nullptr && FaultRuntime::Active()->ParseGivesDocument()) {
        __real__XDOMParse(out, stream, options, reserved1, reserved2, reserved3);
        return *answer;
    }
    if (fails || answer != nullptr) {
        *out = nullptr;
        return fails ? E_FAIL : *answer;
    }
    return __real__XDOMParse(out, stream, options, reserved1, reserved2, reserved3);
}

VEXPA_WRAPPED(HRESULT, _XGetZipFileCount, const char16_t* path, std::int32_t* count) {
    if (Fails("_XGetZipFileCount")) {
        *count = 0;
        return E_FAIL;
    }
    return __real__XGetZipFileCount(path, count);
}

VEXPA_WRAPPED(HRESULT, _XGetZipFileList, const char16_t* path, const char16_t** names,
              std::int32_t count) {
    return Fails("_XGetZipFileList") ? E_FAIL : __real__XGetZipFileList(path, names, count);
}

// A failing extraction leaves bytes behind, as the unzip call may.
VEXPA_WRAPPED(int, UzpUnzipToMemory, char* zip, char* entry, UzpOpts* options, UzpCB* callbacks,
              UzpBuffer* result) {
    FaultRuntime* faults = FaultRuntime::Active();
    if (faults == nullptr) return __real_UzpUnzipToMemory(zip, entry, options, callbacks, result);
    faults->OnCallbacks(*callbacks);
    const bool fails = faults->Fails("UzpUnzipToMemory", entry);
    const int success = __real_UzpUnzipToMemory(zip, entry, options, callbacks, result);
    faults->OnBuffer(result->strptr);
    return fails ? 0 : success;
}

VEXPA_WRAPPED(BSTR, _XSysAllocString, const char16_t* text) {
    return Fails("_XSysAllocString") ? nullptr : __real__XSysAllocString(text);
}

VEXPA_WRAPPED(int, _Xaccess, const char16_t* path, int mode) {
    return Fails("_Xaccess") ? -1 : __real__Xaccess(path, mode);
}

VEXPA_WRAPPED(int, u_strcat_s, char16_t* destination, std::size_t size, const char16_t* source) {
    if (Fails("u_strcat_s")) {
        destination[0] = 0;
        return ERANGE;
    }
    return __real_u_strcat_s(destination, size, source);
}

VEXPA_WRAPPED(int, u_splitpath_s, const char16_t* path, char16_t* drive, std::size_t driveSize,
              char16_t* directory, std::size_t directorySize, char16_t* name, std::size_t nameSize,
              char16_t* extension, std::size_t extensionSize) {
    FaultRuntime* faults = FaultRuntime::Active();
    if (faults == nullptr || !faults->SplitDirectory()) {
        return __real_u_splitpath_s(path, drive, driveSize, directory, directorySize, name, nameSize,
                                    extension, extensionSize);
    }
    const std::u16string& answer = *faults->SplitDirectory();
    directory[answer.copy(directory, directorySize - 1)] = 0;
    return 0;
}

VEXPA_WRAPPED(void, free, void* memory) {
    if (FaultRuntime::Active() != nullptr) FaultRuntime::Active()->OnFree(memory);
    __real_free(memory);
}

}  // extern "C"
