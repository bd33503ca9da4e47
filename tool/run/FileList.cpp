#include "tool/run/FileList.h"

#include <sys/stat.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <memory>
#include <optional>
#include <string_view>
#include <system_error>
#include <utility>

#include "tool/run/Interrupt.h"
#include "tool/run/StandardInput.h"
#include "tool/text/Local.h"
#include "tool/text/Output.h"

namespace vexpa_tool {

namespace {

namespace fs = std::filesystem;

constexpr std::string_view kExtensions[] = {
    "3mf",  "docm", "docx", "dotm", "dotx", "dwfx", "oxps", "potm", "potx", "ppam",
    "ppsm", "ppsx", "pptm", "pptx", "sldm", "sldx", "thmx", "vsdm", "vsdx", "vssm",
    "vssx", "vstm", "vstx", "xlam", "xlsb", "xlsm", "xlsx", "xltm", "xltx", "xps",
};

constexpr std::string_view kLockFilePrefix = "~$";

char LowerAscii(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

bool IsFolder(const std::string& path) {
    struct stat status;
    return stat(path.c_str(), &status) == 0 && S_ISDIR(status.st_mode);
}

bool IsList(const std::string& argument) {
    return argument.size() > 1 && argument.front() == '@';
}

class Lister {
public:
    explicit Lister(bool recursive) : recursive_(recursive) {}

    void Add(const std::string& argument) {
        if (IsList(argument)) return AddList(argument.substr(1));
        AddFile(argument);
    }

    FileList Take() { return std::move(list_); }

private:
    void AddFile(const std::string& name) {
        if (name == "-") {
            if (const auto input = TakeStandardInput()) list_.files.push_back(*input);
        } else if (recursive_ && IsFolder(name)) {
            AddFolder(name);
        } else {
            list_.files.emplace_back(name);
        }
    }

    // Nothing when it cannot be read, which is complained of.
    std::optional<InputFile> TakeStandardInput() {
        try {
            return StandardInput();
        } catch (const FatalError&) {
            throw;
        } catch (const ToolError& error) {
            Complain(error.what());
            list_.status = Worse(list_.status, error.Status());
        }
        return std::nullopt;
    }

    void AddFolder(const std::string& folder) {
        std::vector<std::string> names;
        for (std::vector<fs::path> folders = {folder}; !folders.empty();) {
            const fs::path next = std::move(folders.back());
            folders.pop_back();
            LookInto(next, names, folders);
        }
        std::sort(names.begin(), names.end());
        list_.files.insert(list_.files.end(), names.begin(), names.end());
    }

    // A link to a folder may lead into a circle, so only links to files are followed.
    void LookInto(const fs::path& folder, std::vector<std::string>& names,
                  std::vector<fs::path>& folders) {
        std::error_code error;
        fs::directory_iterator entry(folder, error);
        for (; !error && entry != fs::directory_iterator(); entry.increment(error)) {
            StopIfInterrupted();
            std::error_code unknown;
            if (fs::is_directory(entry->symlink_status(unknown))) {
                folders.push_back(entry->path());
            } else if (IsDocumentName(entry->path().filename()) && entry->is_regular_file(unknown)) {
                names.push_back(entry->path());
            }
        }
        if (error) Fail(folder, error);
    }

    void AddList(const std::string& name) {
        const std::optional<InputFile> list = name == "-" ? TakeStandardInput() : InputFile(name);
        std::string text;
        if (!list || !ReadList(*list, text)) return;
        const char end = text.find('\0') == std::string::npos ? '\n' : '\0';
        for (std::string_view rest = text; !rest.empty();) {
            const std::string_view line = rest.substr(0, rest.find(end));
            rest.remove_prefix(std::min(line.size() + 1, rest.size()));
            if (!line.empty()) AddFile(std::string(line));
        }
    }

    bool ReadList(const InputFile& list, std::string& text) {
        const std::unique_ptr<std::FILE, int (*)(std::FILE*)> file(std::fopen(list.path.c_str(), "rb"),
                                                                   std::fclose);
        std::array<char, 64 << 10> piece;
        while (file) {
            const std::size_t got = std::fread(piece.data(), 1, piece.size(), file.get());
            text.append(piece.data(), got);
            if (got == 0 && std::ferror(file.get()) == 0) return true;
            if (got == 0) break;
        }
        Fail(list.name, {errno, std::generic_category()});
        return false;
    }

    void Fail(const std::string& name, const std::error_code& error) {
        Complain(PrintableLocal(name) + ": cannot be read: " + error.message());
        list_.status = Worse(list_.status, kReadOrWriteError);
    }

    bool recursive_;
    FileList list_;
};

}  // namespace

std::span<const std::string_view> DocumentExtensions() {
    return kExtensions;
}

bool IsDocumentName(const std::string& name) {
    if (std::string_view(name).substr(0, kLockFilePrefix.size()) == kLockFilePrefix) return false;
    const std::size_t dot = name.rfind('.');
    if (dot == std::string::npos) return false;
    std::string extension = name.substr(dot + 1);
    std::transform(extension.begin(), extension.end(), extension.begin(), LowerAscii);
    return std::binary_search(std::begin(kExtensions), std::end(kExtensions), extension);
}

bool MeansSeveralFiles(const FileArguments& arguments) {
    const std::vector<std::string>& words = arguments.arguments;
    return arguments.recursive || words.size() > 1 || std::any_of(words.begin(), words.end(), IsList);
}

FileList ListFiles(const FileArguments& arguments) {
    Lister lister(arguments.recursive);
    for (const std::string& argument : arguments.arguments) lister.Add(argument);
    FileList list = lister.Take();
    list.isSeveral = MeansSeveralFiles(arguments);
    return list;
}

InputFile TheFile(const std::string& argument) {
    return argument == "-" ? StandardInput() : InputFile(argument);
}

}  // namespace vexpa_tool
