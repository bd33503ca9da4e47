// The slots of the platform's interfaces: what is compiled into callers, and into every other
// runtime. Each operation answers its place among the slots, and is called by it.

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>

#include "vexpa/platform/Runtime.h"

namespace {

// A pointer that says a number.
template <class Pointer>
Pointer Number(std::uintptr_t number) {
    return reinterpret_cast<Pointer>(number);
}

template <class Result>
Result CallSlot(void* object, std::size_t slot) {
    // More arguments than any operation has: those too many stay unread.
    using Function = Result (*)(void*, void*, void*, void*, void*, void*, void*, void*);
    const auto* table = *static_cast<Function**>(object);
    return table[slot](object, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr);
}

void ExpectNumbered(void* object, std::uint32_t count) {
    for (std::uint32_t slot = 0; slot < count; ++slot) {
        EXPECT_EQ(CallSlot<std::uint32_t>(object, slot), slot);
    }
}

struct NumberedStream : IStream {
    HRESULT QueryInterface(const GUID&, void**) override { return 0; }
    std::uint32_t AddRef() override { return 1; }
    std::uint32_t Release() override { return 2; }
    HRESULT Read(void*, std::uint32_t, std::uint32_t*) override { return 3; }
    HRESULT Write(const void*, std::uint32_t, std::uint32_t*) override { return 4; }
    HRESULT Seek(std::int64_t, std::uint32_t, std::uint64_t*) override { return 5; }
    HRESULT SetSize(std::uint64_t) override { return 6; }
    HRESULT CopyTo(IStream*, std::uint64_t, std::uint64_t*, std::uint64_t*) override { return 7; }
    HRESULT Commit(std::uint32_t) override { return 8; }
    HRESULT Revert() override { return 9; }
    HRESULT LockRegion(std::uint64_t, std::uint64_t, std::uint32_t) override { return 10; }
    HRESULT UnlockRegion(std::uint64_t, std::uint64_t, std::uint32_t) override { return 11; }
    HRESULT Stat(STATSTG*, std::uint32_t) override { return 12; }
    HRESULT Clone(IStream**) override { return 13; }
};

struct NumberedStorage : IStorage {
    HRESULT QueryInterface(const GUID&, void**) override { return 0; }
    std::uint32_t AddRef() override { return 1; }
    std::uint32_t Release() override { return 2; }
    HRESULT CreateStream(const char16_t*, std::uint32_t, std::uint32_t, std::uint32_t,
                         IStream**) override {
        return 3;
    }
    HRESULT OpenStream(const char16_t*, void*, std::uint32_t, std::uint32_t, IStream**) override {
        return 4;
    }
    HRESULT CreateStorage(const char16_t*, std::uint32_t, std::uint32_t, std::uint32_t,
                          IStorage**) override {
        return 5;
    }
    HRESULT OpenStorage(const char16_t*, IStorage*, std::uint32_t, char16_t**, std::uint32_t,
                        IStorage**) override {
        return 6;
    }
    HRESULT CopyTo(std::uint32_t, const GUID*, char16_t**, IStorage*) override { return 7; }
    HRESULT MoveElementTo(const char16_t*, IStorage*, const char16_t*, std::uint32_t) override {
        return 8;
    }
    HRESULT Commit(std::uint32_t) override { return 9; }
    HRESULT Revert() override { return 10; }
    HRESULT EnumElements(std::uint32_t, void*, std::uint32_t, IEnumSTATSTG**) override { return 11; }
    HRESULT DestroyElement(const char16_t*) override { return 12; }
    HRESULT RenameElement(const char16_t*, const char16_t*) override { return 13; }
    HRESULT SetElementTimes(const char16_t*, const FILETIME*, const FILETIME*,
                            const FILETIME*) override {
        return 14;
    }
    HRESULT SetClass(const GUID&) override { return 15; }
    HRESULT SetStateBits(std::uint32_t, std::uint32_t) override { return 16; }
    HRESULT Stat(STATSTG*, std::uint32_t) override { return 17; }
};

struct NumberedEnumSTATSTG : IEnumSTATSTG {
    HRESULT QueryInterface(const GUID&, void**) override { return 0; }
    std::uint32_t AddRef() override { return 1; }
    std::uint32_t Release() override { return 2; }
    HRESULT Next(std::uint32_t, STATSTG*, std::uint32_t*) override { return 3; }
    HRESULT Skip(std::uint32_t) override { return 4; }
    HRESULT Reset() override { return 5; }
    HRESULT Clone(IEnumSTATSTG**) override { return 6; }
};

struct NumberedDomAttribute : IDomAttribute {
    const char16_t* GetValue() override { return Number<const char16_t*>(7); }
};

struct NumberedDomAttributes : IDomAttributes {
    IDomAttribute* GetNamedItem(const char16_t*) override { return Number<IDomAttribute*>(7); }
};

struct NumberedDomNode : IDomNode {
    IDomAttributes* GetAttributes() override { return Number<IDomAttributes*>(7); }
};

struct NumberedDomNodeList : IDomNodeList {
    std::uint32_t GetLength() override { return 0; }
    IDomNode* GetItem(std::uint32_t) override { return Number<IDomNode*>(1); }
};

struct NumberedDomDocument : IDomDocument {
    void Release() override { called = 0; }
    IDomNodeList* GetElementsByTagName(const char16_t*) override { return Number<IDomNodeList*>(1); }
    int called = -1;
};

TEST(RuntimeSlots, OfAStream) {
    NumberedStream object;
    ExpectNumbered(static_cast<IStream*>(&object), 14);
    EXPECT_EQ(static_cast<void*>(static_cast<IUnknown*>(&object)), static_cast<void*>(&object));
    EXPECT_EQ(sizeof(IStream), sizeof(void*));
}

TEST(RuntimeSlots, OfAStorage) {
    NumberedStorage object;
    ExpectNumbered(static_cast<IStorage*>(&object), 18);
    EXPECT_EQ(static_cast<void*>(static_cast<IUnknown*>(&object)), static_cast<void*>(&object));
    EXPECT_EQ(sizeof(IStorage), sizeof(void*));
}

TEST(RuntimeSlots, OfAnEnumerator) {
    NumberedEnumSTATSTG object;
    ExpectNumbered(static_cast<IEnumSTATSTG*>(&object), 7);
    EXPECT_EQ(static_cast<void*>(static_cast<IUnknown*>(&object)), static_cast<void*>(&object));
    EXPECT_EQ(sizeof(IEnumSTATSTG), sizeof(void*));
}

TEST(RuntimeSlots, OfADocument) {
    NumberedDomDocument document;
    CallSlot<void>(static_cast<IDomDocument*>(&document), 0);
    EXPECT_EQ(document.called, 0) << "slot 0 is Release";
    EXPECT_EQ(CallSlot<std::uintptr_t>(static_cast<IDomDocument*>(&document), 1), 1u);
}

TEST(RuntimeSlots, OfWhatADocumentHandsOut) {
    NumberedDomNodeList list;
    EXPECT_EQ(CallSlot<std::uint32_t>(static_cast<IDomNodeList*>(&list), 0), 0u);
    EXPECT_EQ(CallSlot<std::uintptr_t>(static_cast<IDomNodeList*>(&list), 1), 1u);
    NumberedDomNode node;
    EXPECT_EQ(CallSlot<std::uintptr_t>(static_cast<IDomNode*>(&node), 0), 7u);
    NumberedDomAttributes attributes;
    EXPECT_EQ(CallSlot<std::uintptr_t>(static_cast<IDomAttributes*>(&attributes), 0), 7u);
    NumberedDomAttribute attribute;
    EXPECT_EQ(CallSlot<std::uintptr_t>(static_cast<IDomAttribute*>(&attribute), 0), 7u);
}

}  // namespace
