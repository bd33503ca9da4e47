#include "bench/xmlfx/SampleDocument.h"

#include <cstdlib>
#include <fstream>
#include <iterator>

namespace vexpa_bench {

std::string MadeDocument(int paragraphs) {
    std::string xml =
        "<w:document xmlns:w=\"http://schemas.openxmlformats.org/wordprocessingml/2006/main\">";
    for (int i = 0; i < paragraphs; ++i) {
        xml +=
            "<w:p w:rsidR=\"00A77B3E\" w:rsidRDefault=\"00A77B3E\" w:rsidP=\"00B21C55\"><w:pPr>"
            "<w:jc w:val=\"center\"/><w:spacing w:before=\"120\" w:after=\"240\" w:line=\"276\" "
            "w:lineRule=\"auto\"/></w:pPr><w:r w:rsidRPr=\"00B21C55\"><w:rPr><w:rFonts "
            "w:ascii=\"Calibri\" w:hAnsi=\"Calibri\"/><w:sz w:val=\"24\"/></w:rPr>"
            "<w:t>High water stood at 4.2 m on Monday.</w:t></w:r></w:p>";
    }
    return xml + "</w:document>";
}

std::string RealDocument() {
    const char* path = std::getenv("VEXPA_BENCH_DOCUMENT");
    if (path == nullptr) return {};
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

}  // namespace vexpa_bench
