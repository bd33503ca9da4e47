#include "tests/runtime/com/CompoundBytes.h"
#include "tests/tool/check/FindingRows.h"

namespace vexpa_test {

FindingRows FileRows() {
    const std::string sound = SoundPackage().Bytes();
    return {
        {"a sound package", sound, ""},
        {"plain text", "plain text", "VX010"},
        {"zeros", std::string(4096, '\0'), "VX010"},
        {"a PDF document", "%PDF-1.7", "VX010"},
        {"a web page", "<!DOCTYPE html><p>Not found</p>", "VX010"},
        {"an encrypted package", CompoundBytes({{"EncryptionInfo", "x"}, {"EncryptedPackage", "x"}}),
         "VX011"},
        {"a legacy document", CompoundBytes({{"WordDocument", "x"}, {"1Table", "x"}}), "VX012"},
        {"a legacy spreadsheet", CompoundBytes({{"Workbook", "x"}}), "VX012"},
        {"a legacy document inside an encrypted one",
         CompoundBytes({{"WordDocument", "x"}, {"EncryptedPackage", "x"}}), "VX011"},
        {"no bytes", "", "VX013"},
        {"another compound file", CompoundBytes({{"Something", "x"}}), "VX014"},
        {"a damaged compound file", "\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1", "VX015"},
        {"a compound file with a package behind it", CompoundBytes({{"Something", "x"}}) + sound,
         "VX014"},
        {"a package cut inside its directory", sound.substr(0, sound.rfind("PK\1\2") + 4), "VX101"},
        {"a package cut inside an entry", sound.substr(0, sound.find("PK\1\2") - 5), "VX101"},
        {"a package cut inside its end record", sound.substr(0, sound.size() - 1), "VX101"},
    };
}

}  // namespace vexpa_test
