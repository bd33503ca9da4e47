#include "examples/QtImporter.h"

#include <QIODevice>
#include <QXmlStreamReader>
#include <exception>
#include <vector>

#include "examples/importer/PartStream.h"
#include "examples/importer/TreeBuilder.h"
#include "vexpa/base/Utf16.h"

namespace importer {

namespace {

// Reads the part as the parser asks for it.
class PartDevice final : public QIODevice {
public:
    explicit PartDevice(IStream& stream) : stream_(stream) { open(ReadOnly | Unbuffered); }
    bool isSequential() const override { return true; }
    void RethrowFailure() const {
        if (failure_) std::rethrow_exception(failure_);
    }

protected:
    // Qt lets no exception through: the parser sees the end, and the importer the reason.
    qint64 readData(char* bytes, qint64 most) override try {
        return static_cast<qint64>(ReadBytes(stream_, bytes, static_cast<std::size_t>(most)));
    } catch (...) {
        failure_ = std::current_exception();
        return -1;
    }
    qint64 writeData(const char*, qint64) override { return -1; }

private:
    IStream& stream_;
    std::exception_ptr failure_;
};

void Append(const QStringRef& slice, std::u16string& text) {
    for (const QChar unit : slice) text.push_back(unit.unicode());
}

// The texts of a start tag. The parser's are slices without an end mark, so they are copied,
// each with its NUL, into one text whose memory serves for element after element.
class StartTag final : public tarn::xmlfx::Attributes {
public:
    void Read(const QXmlStreamReader& xml) {
        texts_.clear();
        starts_.clear();
        Add(xml.namespaceUri());
        Add(xml.name());
        const QXmlStreamAttributes attributes = xml.attributes();
        for (const QXmlStreamAttribute& attribute : attributes) {
            Add(attribute.namespaceUri());
            Add(attribute.name());
            Add(attribute.qualifiedName());
            Add(attribute.value());
        }
    }

    const unsigned short* Uri() const { return Text(0); }
    const unsigned short* LocalName() const { return Text(1); }

    unsigned int getLength() const override {
        return static_cast<unsigned int>((starts_.size() - 2) / 4);
    }
    const unsigned short* getURI(unsigned int i) const override { return Text(2 + 4 * i); }
    const unsigned short* getLocalName(unsigned int i) const override { return Text(3 + 4 * i); }
    const unsigned short* getQName(unsigned int i) const override { return Text(4 + 4 * i); }
    const unsigned short* getType(unsigned int) const override { return tarn::ToUnits(u"CDATA"); }
    const unsigned short* getValue(unsigned int i) const override { return Text(5 + 4 * i); }

private:
    void Add(const QStringRef& slice) {
        starts_.push_back(texts_.size());
        Append(slice, texts_);
        texts_.push_back(u'\0');
    }
    const unsigned short* Text(std::size_t index) const {
        return tarn::ToUnits(texts_.data() + starts_[index]);
    }

    std::u16string texts_;
    std::vector<std::size_t> starts_;
};

void DeclareNamespaces(const QXmlStreamReader& xml, const TreeBuilder& builder) {
    const QXmlStreamNamespaceDeclarations declarations = xml.namespaceDeclarations();
    for (const QXmlStreamNamespaceDeclaration& declaration : declarations) {
        builder.DeclareNamespace(static_cast<std::size_t>(declaration.namespaceUri().size()));
    }
}

void ReadDocument(QXmlStreamReader& xml, TreeBuilder& builder) {
    StartTag tag;
    std::u16string text;
    while (!xml.atEnd()) {
        switch (xml.readNext()) {
            case QXmlStreamReader::StartElement:
                DeclareNamespaces(xml, builder);
                tag.Read(xml);
                builder.StartElement(tag.Uri(), tag.LocalName(), tag);
                break;
            case QXmlStreamReader::Characters:
                text.clear();
                Append(xml.text(), text);
                builder.Characters(text);
                break;
            case QXmlStreamReader::EndElement:
                builder.EndElement();
                break;
            case QXmlStreamReader::DTD:
                throw ImportError(kNoDocumentType);
            default:
                break;
        }
    }
}

}  // namespace

Tree QtImporter::Import(IStream& stream) {
    PartDevice device(stream);
    QXmlStreamReader xml(&device);
    xml.setEntityExpansionLimit(100);  // only a document type, before it is refused, has entities
    TreeBuilder builder(limits_);
    ReadDocument(xml, builder);
    device.RethrowFailure();
    if (xml.hasError()) {
        throw ImportError(xml.errorString().toStdString(),
                          static_cast<std::uint64_t>(xml.lineNumber()));
    }
    return builder.TakeTree();
}

}  // namespace importer
