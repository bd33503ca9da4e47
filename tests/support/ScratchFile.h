// tests/support/ScratchFile.h - a file that lives as long as its test.
#ifndef VEXPA_TESTS_SUPPORT_SCRATCHFILE_H_
#define VEXPA_TESTS_SUPPORT_SCRATCHFILE_H_

#include <string>
#include <string_view>

namespace vexpa_test {

// A file in a fresh folder of its own; both go when the object goes.
class ScratchFile {
public:
    explicit ScratchFile(std::string_view bytes, const std::string& name = "package.zip");
    ~ScratchFile();
    ScratchFile(const ScratchFile&) = delete;
    ScratchFile& operator=(const ScratchFile&) = delete;

    void Write(std::string_view bytes) const;  // replaces the content
    void Remove() const;

    const std::string& Path() const { return path_; }
    std::u16string Path16() const;

private:
    std::string folder_;
    std::string path_;
};

// The whole content of a file; throws when it cannot be read.
std::string ReadFile(const std::string& path);

// UTF-8 to UTF-16, for test text; throws on malformed input.
std::u16string Utf16(std::string_view utf8);

}  // namespace vexpa_test

#endif  // VEXPA_TESTS_SUPPORT_SCRATCHFILE_H_
