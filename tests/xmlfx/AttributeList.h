// tests/xmlfx/AttributeList.h - a parser's attribute list, made by hand.
#ifndef VEXPA_TESTS_XMLFX_ATTRIBUTELIST_H_
#define VEXPA_TESTS_XMLFX_ATTRIBUTELIST_H_

#include <string>
#include <utility>
#include <vector>

#include "vexpa/base/Utf16.h"
#include "vexpa/xmlfx/Attributes.h"

namespace vexpa_test {

struct TestAttribute {
    const char16_t* uri;
    const char16_t* name;
    const char16_t* value;
};

class AttributeList : public tarn::xmlfx::Attributes {
public:
    AttributeList() = default;
    AttributeList(std::initializer_list<TestAttribute> attributes) : attributes_(attributes) {}
    explicit AttributeList(std::vector<TestAttribute> attributes)
        : attributes_(std::move(attributes)) {}

    unsigned int getLength() const override { return static_cast<unsigned int>(attributes_.size()); }
    const unsigned short* getURI(unsigned int index) const override {
        return tarn::ToUnits(attributes_.at(index).uri);
    }
    const unsigned short* getLocalName(unsigned int index) const override {
        return tarn::ToUnits(attributes_.at(index).name);
    }
    const unsigned short* getQName(unsigned int) const override { return nullptr; }
    const unsigned short* getType(unsigned int) const override { return nullptr; }
    const unsigned short* getValue(unsigned int index) const override {
        return tarn::ToUnits(attributes_.at(index).value);
    }

private:
    std::vector<TestAttribute> attributes_;
};

}  // namespace vexpa_test

#endif  // VEXPA_TESTS_XMLFX_ATTRIBUTELIST_H_
