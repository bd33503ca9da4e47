// Writes the seeds: fuzz_make_seeds FOLDER. What is there under another name stays.
#include <filesystem>
#include <fstream>
#include <iostream>
#include <stdexcept>
#include <string>
#include <utility>

#include "tests/runtime/com/CompoundBytes.h"
#include "tests/support/ZipFile.h"

namespace {

using vexpa_test::ZipFile;

class SeedFolder {
public:
    explicit SeedFolder(std::filesystem::path folder) : folder_(std::move(folder)) {}

    void Write(const std::string& target, const std::string& name, const std::string& bytes) const {
        std::filesystem::create_directories(folder_ / target);
        std::ofstream file(folder_ / target / name, std::ios::binary);
        file << bytes;
        if (!file.flush()) throw std::runtime_error("cannot write " + name);
    }

private:
    std::filesystem::path folder_;
};

const std::string kOfficeDocument =
    "http://schemas.openxmlformats.org/officeDocument/2006/relationships/officeDocument";
const std::string kImage = "http://schemas.openxmlformats.org/officeDocument/2006/relationships/image";
const std::string kOleObject =
    "http://schemas.openxmlformats.org/officeDocument/2006/relationships/oleObject";

const std::string kContentTypes =
    "<?xml version=\"1.0\"?><Types xmlns=\"http://schemas.openxmlformats.org/package/2006/"
    "content-types\"><Default Extension=\"xml\" ContentType=\"application/xml\"/>"
    "<Override PartName=\"/word/document.xml\" ContentType=\"text/a\"/></Types>";

std::string Relationship(const std::string& id, const std::string& type, const std::string& target,
                         const std::string& mode = {}) {
    return "<Relationship Id=\"" + id + "\" Type=\"" + type + "\" Target=\"" + target + "\"" +
           (mode.empty() ? "" : " TargetMode=\"" + mode + "\"") + "/>";
}

std::string Relationships(const std::string& elements) {
    return "<Relationships xmlns=\"http://schemas.openxmlformats.org/package/2006/"
           "relationships\">" +
           elements + "</Relationships>";
}

std::string SmallCompoundFile() {
    return vexpa_test::CompoundBytes({{"a", "text"}});
}

std::string DeepCompoundFile() {
    return vexpa_test::CompoundBytes(
        {{"storage", {}, {{"inner", std::string(100, 'i')}, {"empty", {}, {}, true}}},
         {"long", std::string(4200, 'l')}},
        "0123456789abcdef");
}

ZipFile SmallPackage() {
    ZipFile zip;
    zip.Add("[Content_Types].xml", kContentTypes);
    zip.Add("_rels/.rels", Relationships(Relationship("rId1", kOfficeDocument, "word/document.xml")));
    zip.Add("word/document.xml", "<document/>");
    return zip;
}

ZipFile RelatedPackage() {
    ZipFile zip = SmallPackage();
    zip.Add("word/_rels/document.xml.rels",
            Relationships(Relationship("rId1", kImage, "media/image.png") +
                          Relationship("rId2", kImage, "http://example.com/a", "External") +
                          Relationship("rId3", kOleObject, "/word/object.bin") +
                          Relationship("rId4", kOfficeDocument, "../word/document.xml")));
    zip.Add("word/media/image.png", "no image").stored = true;
    zip.Add("word/object.bin", SmallCompoundFile());
    return zip;
}

// Of a size that leaves this rest when divided by four (see InputFile).
ZipFile WithRest(ZipFile zip, std::size_t rest) {
    while (zip.Bytes().size() % 4 != rest) zip.comment += ' ';
    return zip;
}

void WritePackages(const SeedFolder& seeds) {
    seeds.Write("package", "small.docx", SmallPackage().Bytes());
    seeds.Write("package", "related.docx", RelatedPackage().Bytes());
    seeds.Write("package", "fresh.docx", WithRest(RelatedPackage(), 0).Bytes());
    seeds.Write("package", "in-pieces.docx", WithRest(RelatedPackage(), 1).Bytes());
    ZipFile deep = SmallPackage();
    deep.entries[2].content = DeepCompoundFile();
    seeds.Write("package", "storage.docx", deep.Bytes());
}

void WriteArchives(const SeedFolder& seeds) {
    ZipFile plain;
    plain.Add("a.txt", "the quick brown fox, the quick brown fox");
    plain.Add("b/c.txt", "stored").stored = true;
    ZipFile zip64 = plain;
    zip64.zip64 = true;
    zip64.entries[0].zip64 = true;
    ZipFile described = plain;
    described.entries[0].dataDescriptor = true;
    described.entries[1].name = "[\xC3\xA9]*?.txt";
    described.entries[1].flags = 0x0800;  // UTF-8
    described.prefix = "prefix";
    described.comment = "comment";

    const std::pair<const char*, const ZipFile*> archives[] = {
        {"plain", &plain}, {"zip64", &zip64}, {"described", &described}};
    for (const auto& [name, zip] : archives) {
        seeds.Write("zip_list", std::string(name) + ".zip", zip->Bytes());
        seeds.Write("zip_extract", std::string(name) + ".name", "a.txt\n" + zip->Bytes());
        seeds.Write("zip_extract", std::string(name) + ".pattern", "[!b-z]*\\.t?t\n" + zip->Bytes());
    }
}

void WriteTexts(const SeedFolder& seeds) {
    seeds.Write("dom", "types.xml", kContentTypes);
    seeds.Write("dom", "rels.xml", Relationships(Relationship("rId1", kImage, "a&amp;&#x41;")));
    seeds.Write("dom", "entity.xml",
                "<!DOCTYPE a [<!ENTITY e \"value\"><!ATTLIST a Id CDATA \"&e;\">]>"
                "<a><x:Relationship xmlns:x=\"u\" x:Id='&e;'/><![CDATA[<]]><!--c--></a>");
    seeds.Write("dom", "utf16.xml", std::string("\xFF\xFE<\0a\0/\0>\0", 10));

    seeds.Write("target_resolution", "up", "word/charts/chart1.xml\n../../media/image.png");
    seeds.Write("target_resolution", "uri", "word/document.xml\nmailto:a@b");
    seeds.Write("target_resolution", "backslash", "word\\document.xml\n..\\a..b/c");

    seeds.Write("part_uri", "name", "/word/document.xml");
    seeds.Write("part_uri", "uri", "http://user@host:8080/a%20b/c?query#fragment");
    seeds.Write("part_uri", "literal", "ftp://[::1.2.3.4]:21/;p");
    seeds.Write("part_uri", "opaque", "mailto:a@b#f");
    seeds.Write("part_uri", "registry", "x://a,b$c/");

    seeds.Write("type_folding", "known", kOfficeDocument);
    seeds.Write("type_folding", "mixed",
                " HTTP:\\\\schemas.openxmlformats.org/officeDocument/2006/relationships/IMAGE rest");

    seeds.Write("vocabulary", "known",
                "http://schemas.openxmlformats.org/wordprocessingml/2006/main\nval");
    seeds.Write("vocabulary", "plain", "\nId");

    seeds.Write("attribute_set", "element", "@|Id|1\n@|Type|t\n<7\n.text\n{\n<8\n.b\n>8\n}\n.c\n>7\n");
    seeds.Write("attribute_set", "kept",
                "@http://schemas.openxmlformats.org/wordprocessingml/2006/main|val|1\n<1\n=5|x\n>1\n"
                "<3\n+9\n+9\n{\n<2\n>2\n<2\n+1\n>2\n}\n>3\n!\n");
}

void WriteCompoundFiles(const SeedFolder& seeds) {
    seeds.Write("storage", "small.bin", SmallCompoundFile());
    seeds.Write("storage", "deep.bin", DeepCompoundFile());
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 2) {
        std::cerr << "usage: fuzz_make_seeds FOLDER\n";
        return 2;
    }
    const SeedFolder seeds(argv[1]);
    WritePackages(seeds);
    WriteArchives(seeds);
    WriteCompoundFiles(seeds);
    WriteTexts(seeds);
    return 0;
}
