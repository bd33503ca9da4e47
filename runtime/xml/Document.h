// runtime/xml/Document.h - a parsed document: the elements by name, and their attributes.
#ifndef VEXPA_RUNTIME_XML_DOCUMENT_H_
#define VEXPA_RUNTIME_XML_DOCUMENT_H_

#include <cstdint>
#include <deque>
#include <memory>
#include <vector>

#include "runtime/xml/DocumentMemory.h"
#include "runtime/xml/NameTable.h"
#include "runtime/xml/TextStore.h"
#include "vexpa/platform/Runtime.h"

namespace vexpa_runtime {

struct DocumentData;

// Attributes of one element follow each other in the document's array.
class Attribute final : public IDomAttribute {
public:
    Attribute(std::uint32_t name, const char16_t* value) noexcept : value_(value), name_(name) {}
    const char16_t* GetValue() override { return value_; }
    std::uint32_t Name() const noexcept { return name_; }

private:
    const char16_t* value_;
    std::uint32_t name_;  // in DocumentData::attributeNames
};

// Stands for every element without attributes: nothing else is known of an element, so all
// of them are alike.
class BareElement final : public IDomNode {
public:
    IDomAttributes* GetAttributes() override { return nullptr; }
};

// One with attributes: both the node and its attribute map, as neither holds more than the other.
class Element final : public IDomNode, public IDomAttributes {
public:
    Element(DocumentData* document, std::uint32_t first, std::uint32_t count) noexcept
        : document_(document), first_(first), count_(count) {}
    IDomAttributes* GetAttributes() override { return this; }
    IDomAttribute* GetNamedItem(const char16_t* name) override;

private:
    DocumentData* document_;
    std::uint32_t first_;
    std::uint32_t count_;
};

// The elements of one local name, a range of DocumentData::order.
class ElementList final : public IDomNodeList {
public:
    ElementList(DocumentData* document, std::uint32_t first, std::uint32_t length) noexcept
        : document_(document), first_(first), length_(length) {}
    std::uint32_t GetLength() override { return length_; }
    IDomNode* GetItem(std::uint32_t index) override;

private:
    DocumentData* document_;
    std::uint32_t first_;
    std::uint32_t length_;
};

// What a document consists of. The text of elements is not kept, nor which element is in
// which: nobody asks for either.
//
// A hostile document is all tables, so they take what little they can: those that grow do so
// without moving, and an element without attributes is a number in `order`.
struct DocumentData {
    static constexpr std::uint32_t kBare = 0xFFFFFFFF;

    DocumentData() = default;
    DocumentData(const DocumentData&) = delete;
    DocumentData& operator=(const DocumentData&) = delete;

    DocumentMemory memory;
    TextStore text{memory};  // names and NUL-terminated values
    NameTable localNames{text, memory};
    NameTable attributeNames{text, memory};
    std::pmr::deque<Attribute> attributes{&memory};
    std::pmr::deque<Element> elements{&memory};  // in document order
    BareElement bareElement;
    // `elements`, or kBare: by local name, else in document order.
    std::pmr::vector<std::uint32_t> order{&memory};
    std::pmr::vector<ElementList> lists{&memory};  // by local name
};

// Hands the data out. Everything is built beforehand, so no question can fail.
class Document final : public IDomDocument {
public:
    explicit Document(std::unique_ptr<DocumentData> data) noexcept;
    void Release() override { delete this; }
    IDomNodeList* GetElementsByTagName(const char16_t* name) override;

private:
    std::unique_ptr<DocumentData> data_;
    ElementList none_;
};

}  // namespace vexpa_runtime

#endif  // VEXPA_RUNTIME_XML_DOCUMENT_H_
