#include "vexpa/xmlfx/XmlAttrBuilderImpl.h"

#include <utility>

#include "vexpa/base/DeleteIfExists.h"
#include "vexpa/xmlfx/LeafXmlRoAttrImpl.h"

namespace tarn::xmlfx {

Handle<XmlAttrBuilder> XmlAttrBuilder::New(XmlAttrCallback* callback) {
    return Handle<XmlAttrBuilder>(new XmlAttrBuilderImpl(callback));
}

// There is a builder for each level of nesting, and a document decides how many. Each is
// cut off from those below it before it ends, so that none ends inside another.
XmlAttrBuilderImpl::~XmlAttrBuilderImpl() {
    while (child_) child_ = std::exchange(child_->child_, Handle<XmlAttrBuilderImpl>());
}

void XmlAttrBuilderImpl::Release() {
    DeleteIfExists(this);
}

// Kept: the token goes unused, that of EndElement counts. (Builder.ReportsTheElementWithItsToken)
int XmlAttrBuilderImpl::StartElement(std::uint32_t, XmlRoAttr* attrs) {
    current_ = Handle<XmlRoAttrDecorator>(new XmlRoAttrDecorator(*attrs));
    return 1;
}

void XmlAttrBuilderImpl::Characters(const unsigned short* text) {
    if (text != nullptr) current_->AddAttribute(kTextToken, new LeafXmlRoAttrImpl(text));
}

void XmlAttrBuilderImpl::EndElement(std::uint32_t token) {
    callback_->OnElement(token, current_.Get());
}

XmlAttrHandler* XmlAttrBuilderImpl::GetChildHandler() {
    if (!child_) child_ = Handle<XmlAttrBuilderImpl>(new XmlAttrBuilderImpl(this));
    return child_.Get();
}

void XmlAttrBuilderImpl::Reset() {
    if (current_) current_->Reset();
}

void XmlAttrBuilderImpl::AddChild(std::uint32_t token, XmlRoAttr* set) {
    Handle<XmlRoAttr> shared = set->Share();
    // What cannot be shared cannot be kept.
    if (shared) current_->AddAttribute(token, shared.Detach());
}

void XmlAttrBuilderImpl::OnElement(std::uint32_t token, XmlRoAttr* set) {
    AddChild(token, set);
}

}  // namespace tarn::xmlfx
