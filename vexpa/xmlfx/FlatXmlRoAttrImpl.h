// vexpa/xmlfx/FlatXmlRoAttrImpl.h - the attributes of one element, in one piece of memory.
#ifndef VEXPA_XMLFX_FLATXMLROATTRIMPL_H_
#define VEXPA_XMLFX_FLATXMLROATTRIMPL_H_

#include <atomic>
#include <new>
#include <span>

#include "vexpa/xmlfx/LeafXmlRoAttrImpl.h"
#include "vexpa/xmlfx/XmlRoAttrImpl.h"

namespace tarn::xmlfx {

// A value string with leaves, which lie right behind the set: making an allocation for each
// would cost more than all the rest.
//
// A leaf that is shared may outlive its set, as any value may. The memory of them all goes
// with the last one.
class FlatXmlRoAttrImpl final : public ShallowCloneableImpl<XmlRoAttr> {
public:
    // Room for `count` leaves; the set takes more of them, at a higher price.
    static Handle<FlatXmlRoAttrImpl> New(const unsigned short* value, std::uint32_t count);

    std::uint32_t GetCount() const override;
    XmlRoAttr* GetAt(std::uint32_t index, std::uint32_t* token) const override;
    XmlRoAttr* Find(std::uint32_t token) const override;

    // Appends a leaf, while the set is being built.
    void AddLeaf(std::uint32_t token, const unsigned short* value);

private:
    class Leaf;

    FlatXmlRoAttrImpl(const unsigned short* value, std::uint32_t room);
    ~FlatXmlRoAttrImpl() override = default;

    static void operator delete(FlatXmlRoAttrImpl* set, std::destroying_delete_t) noexcept;
    void Free() noexcept;

    std::span<Leaf> Leaves() const noexcept;

    std::uint32_t room_;
    std::uint32_t count_ = 0;                   // leaves in the room
    std::atomic<std::uint32_t> outliving_ = 0;  // those of them that outlived the set
    Leaf* leaves_;
    Handle<XmlRoAttrImpl> more_;  // the leaves that found no room, if any
};

}  // namespace tarn::xmlfx

#endif  // VEXPA_XMLFX_FLATXMLROATTRIMPL_H_
