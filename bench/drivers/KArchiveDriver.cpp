// The task with KArchive and Qt's XML reader.

#include <KZip>
#include <QXmlStreamReader>
#include <stdexcept>

#include "bench/drivers/NamedParts.h"

namespace {

using vexpa_bench::Element;
using vexpa_bench::ElementSink;

struct Held {
    QByteArray bytes;

    std::string_view Text() const {
        return {bytes.constData(), static_cast<std::size_t>(bytes.size())};
    }
};

class Archive {
public:
    explicit Archive(const char* path) : zip_(QString::fromLocal8Bit(path)) {
        if (!zip_.open(QIODevice::ReadOnly)) throw std::runtime_error("cannot open the archive");
    }
    std::optional<Held> Read(const std::string& name) {
        const KArchiveFile* file = zip_.directory()->file(QString::fromStdString(name));
        if (file == nullptr) return std::nullopt;
        return Held{file->data()};
    }

private:
    KZip zip_;
};

void ParseWithQt(std::string_view xml, const ElementSink& sink) {
    QXmlStreamReader reader(QByteArray::fromRawData(xml.data(), static_cast<int>(xml.size())));
    while (!reader.atEnd()) {
        if (reader.readNext() != QXmlStreamReader::StartElement) continue;
        const std::string name = reader.name().toString().toStdString();
        const QXmlStreamAttributes attributes = reader.attributes();
        std::string value;
        sink({name, [&](std::string_view wanted) -> std::string_view {
                  const QLatin1String key(wanted.data(), static_cast<int>(wanted.size()));
                  return value = attributes.value(key).toString().toStdString();
              }});
    }
    if (reader.hasError()) throw std::runtime_error("malformed XML");
}

}  // namespace

int main(int argc, char** argv) {
    return vexpa_bench::RunDriver(argc, argv, [](const char* file, vexpa_bench::Tally& tally) {
        Archive archive(file);
        vexpa_bench::WalkByNames(archive, ParseWithQt, tally);
    });
}
