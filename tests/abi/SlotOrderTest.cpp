// What compiled callers count on: the slots of the virtual tables.
// A slot is found here as a compiled caller finds it, by its index in the table.

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <new>

#include "tests/opc/PackageFile.h"
#include "vexpa/opc/RelationshipImpl.h"
#include "vexpa/zip/UnZipArchive.h"

namespace {

using namespace tarn;
using namespace vexpa_test;

// The function in slot `index` of the object's table. Slots 0 and 1 are the destructors.
template <class Function>
Function Slot(const void* object, std::size_t index) {
    void* const* table = *static_cast<void* const* const*>(object);
    return reinterpret_cast<Function>(table[index]);
}

using Release = void (*)(void*);
using GetPointer = const void* (*)(const void*);
using Find = const void* (*)(void*, const void*);

class Slots : public testing::Test {
protected:
    void SetUp() override {
        file_ = MinimalPackage();
        file_.Entry("word/_rels/document.xml.rels",
                    RelationshipsXml(RelationshipXml("rId7", kStyles, "styles.xml", "External")));
        package_ = file_.Open();
        ASSERT_TRUE(package_);
        part_ = package_->FindPart(u"word/document.xml");
        relationship_ = part_->GetRelationshipById(u"rId7");
    }

    PackageFile file_;
    Handle<opc::Package> package_;
    opc::Part* part_ = nullptr;
    opc::Relationship* relationship_ = nullptr;
};

TEST_F(Slots, OfARelationship) {
    const opc::Relationship* r = relationship_;
    EXPECT_EQ(Slot<GetPointer>(r, 3)(r), r->GetId());
    EXPECT_EQ(Slot<std::uint32_t (*)(const void*)>(r, 4)(r), 11u);
    EXPECT_EQ(Slot<GetPointer>(r, 5)(r), r->GetType());
    EXPECT_EQ(Slot<GetPointer>(r, 6)(r), &r->GetResolvedTarget());
    EXPECT_EQ(Slot<GetPointer>(r, 7)(r), &r->GetSource());
    EXPECT_EQ(Slot<std::uint32_t (*)(const void*)>(r, 8)(r), 1u);
    EXPECT_EQ(Slot<GetPointer>(r, 9)(r), &r->GetTarget());
}

TEST_F(Slots, OfAPart) {
    opc::Part* p = part_;
    const opc::Relationship* styles = relationship_;
    EXPECT_EQ(Slot<GetPointer>(p, 4)(p), &p->GetName());
    EXPECT_EQ(Slot<GetPointer>(p, 5)(p), p->GetContentType());
    EXPECT_EQ(Slot<Find>(p, 6)(p, u"rId7"), styles);
    const void* cursor[2] = {p, p};
    EXPECT_EQ(Slot<const void* (*)(void*, std::uint32_t, void*)>(p, 7)(p, 11, cursor), styles);
    EXPECT_EQ(cursor[0], styles);
    EXPECT_EQ(cursor[1], nullptr);
    EXPECT_EQ(Slot<GetPointer>(p, 8)(p), &p->GetRelationships());
    struct TwoWords {
        const void* first;
        const void* second;
    };
    const TwoWords range = Slot<TwoWords (*)(void*, const void*)>(p, 9)(
        p, opc::GetRelationshipTypeUri(opc::RelTypeStyles));
    EXPECT_EQ(range.first, styles);
    EXPECT_EQ(range.second, nullptr);
    EXPECT_TRUE(Slot<bool (*)(void*, const void*)>(p, 10)(p, u"rId7"));
    EXPECT_EQ(Slot<void* (*)(void*)>(p, 11)(p), p->LoadData());
    IStream* stream = nullptr;
    EXPECT_EQ(Slot<HRESULT (*)(void*, IStream**)>(p, 12)(p, &stream), S_OK);
    ASSERT_NE(stream, nullptr);
    stream->Release();
    EXPECT_EQ(Slot<HRESULT (*)(void*, IStorage**)>(p, 13)(p, nullptr), E_INVALIDARG);
    EXPECT_EQ(Slot<std::int64_t (*)(void*)>(p, 14)(p), 0);
    Slot<Release>(p, 3)(p);
    EXPECT_TRUE(p->GetRelationships().empty()) << "slot 3 is Close";
}

TEST_F(Slots, OfAPackage) {
    opc::Package* p = package_.Get();
    const opc::PartUri name(u"/word/document.xml");
    const void* main = p->GetRelationshipById(u"rId1");
    EXPECT_EQ(Slot<Find>(p, 4)(p, &name), part_);
    EXPECT_TRUE(Slot<bool (*)(void*, const void*)>(p, 5)(p, &name));
    EXPECT_EQ(Slot<GetPointer>(p, 6)(p), &p->GetRelationships());
    EXPECT_EQ(Slot<Find>(p, 7)(p, u"rId1"), main);
    const void* cursor[2] = {p, p};
    EXPECT_EQ(Slot<const void* (*)(void*, std::uint32_t, void*)>(p, 8)(p, 9, cursor), main);
    EXPECT_EQ(cursor[0], main);
    EXPECT_EQ(cursor[1], nullptr);
    struct TwoWords {
        const void* first;
        const void* second;
    };
    EXPECT_EQ((Slot<TwoWords (*)(void*, const void*)>(p, 9)(
                   p, opc::GetRelationshipTypeUri(opc::RelTypeOfficeDocument)))
                  .first,
              main);
    EXPECT_TRUE(Slot<bool (*)(void*, const void*)>(p, 10)(p, u"rId1"));
    EXPECT_EQ(Slot<Find>(p, 11)(p, u"word/document.xml"), part_);
    // A handle comes back through memory: the caller passes its place first.
    void* clone = p;
    Slot<void* (*)(void*, void*)>(p, 12)(&clone, p);
    EXPECT_EQ(clone, nullptr);
    Slot<Release>(p, 3)(p);
    EXPECT_TRUE(p->GetRelationships().empty()) << "slot 3 is Close";
}

TEST_F(Slots, OfTheShallowCloneFaceOfAPackage) {
    auto* face = static_cast<ShallowCloneable*>(package_.Get());
    EXPECT_EQ(reinterpret_cast<char*>(face) - reinterpret_cast<char*>(package_.Get()),
              static_cast<std::ptrdiff_t>(sizeof(void*)));
    void* clone = face;
    Slot<void* (*)(void*, void*)>(face, 0)(&clone, face);
    EXPECT_EQ(clone, nullptr);
}

TEST_F(Slots, SlotTwoReleases) {
    opc::Package* package = package_.Detach();
    Slot<Release>(package, 2)(package);  // a leak is for the sanitizer to see
}

TEST_F(Slots, SlotOneDeletes) {
    opc::Package* package = package_.Detach();
    Slot<Release>(package, 1)(package);
}

TEST_F(Slots, ReleaseOfANullObjectDoesNothing) {
    Slot<Release>(package_.Get(), 2)(nullptr);
    Slot<Release>(part_, 2)(nullptr);
    Slot<Release>(relationship_, 2)(nullptr);
    EXPECT_NE(package_->GetRelationshipById(u"rId1"), nullptr);
}

// Called twice, the second call finds nothing to end.
TEST(ArchiveSlots, OfTheDestructorLeavesNoState) {
    using lumo::Compression::Zip::UnZipArchive;
    PackageFile package = MinimalPackage();
    alignas(UnZipArchive) unsigned char memory[sizeof(UnZipArchive)];
    auto* archive = new (memory) UnZipArchive;
    ASSERT_EQ(archive->Open(package.Write().Path16().c_str()), 0);
    const auto destroy = Slot<Release>(archive, 0);
    const auto state = [&memory] {
        const void* pointer = nullptr;
        std::memcpy(&pointer, memory + sizeof(void*), sizeof pointer);
        return pointer;
    };
    EXPECT_NE(state(), nullptr);
    destroy(memory);
    EXPECT_EQ(state(), nullptr);
    destroy(memory);
}

}  // namespace
