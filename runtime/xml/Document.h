// runtime/xml/Document.h - a parsed document: the elements by name, and their attributes.
#ifndef VEXPA_RUNTIME_XML_DOCUMENT_H_
#define VEXPA_RUNTIME_XML_DOCUMENT_H_

#include <cstdint>
#include <memory>
#include <memory_resource>
#include <vector>

#include "runtime/Runtime.h"
#include "runtime/xml/NameTable.h"

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

// Both the node and its attribute map, as neither holds more than the other.
class Element final : public IDomNode, public IDomAttributes {
public:
    Element(DocumentData* document, std::uint32_t first, std::uint32_t count) noexcept
        : document_(document), first_(first), count_(count) {}
    IDomAttributes* GetAttributes() override { return count_ != 0 ? this : nullptr; }
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
struct DocumentData {
    DocumentData() = default;
    DocumentData(const DocumentData&) = delete;
    DocumentData& operator=(const DocumentData&) = delete;

    // Names and NUL-terminated values. The default resource is the process's to choose, and may
    // end before the document does.
    std::pmr::monotonic_buffer_resource text{std::pmr::new_delete_resource()};
    NameTable localNames{text};
    NameTable attributeNames{text};
    std::vector<Element> elements;  // in document order
    std::vector<Attribute> attributes;
    std::vector<std::uint32_t> order;  // elements grouped by local name, else in document order
    std::vector<ElementList> lists;    // by local name
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
