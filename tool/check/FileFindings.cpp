// VX0xx: the file itself.

#include <sys/stat.h>

#include <cerrno>
#include <cstdio>
#include <string>
#include <system_error>

#include "tool/check/CompoundLook.h"
#include "tool/check/FileKind.h"
#include "tool/check/Groups.h"
#include "tool/container/DirectoryFault.h"
#include "tool/text/Local.h"

namespace vexpa_tool {

namespace {

std::string SystemError(int error) {
    return "cannot be read: " + std::generic_category().message(error);
}

bool IsFolder(const std::string& path) {
    struct stat status;
    return stat(path.c_str(), &status) == 0 && S_ISDIR(status.st_mode);
}

// Empty when the file can be read.
std::string WhyUnreadable(const std::string& path) {
    struct stat status;
    if (stat(path.c_str(), &status) != 0) return SystemError(errno);
    // Reading a pipe could wait for ever.
    if (!S_ISREG(status.st_mode)) return "not a regular file";
    std::FILE* file = std::fopen(path.c_str(), "rb");
    if (file == nullptr) return SystemError(errno);
    std::fclose(file);
    return {};
}

std::string_view FileNameOf(std::string_view path) {
    return path.substr(path.rfind('/') + 1);  // npos + 1 is 0
}

void CheckKind(const Subject& subject, Findings& findings) {
    const Container& file = *subject.container;
    const std::string start = file.Bytes(0, std::min<std::uint64_t>(file.FileSize(), kFileKindBytes));
    if (LooksLikeCompoundFile(start)) {
        const CompoundLook look = LookAtCompoundFile(file);
        findings.AddStop(look.id, [&](Finding& finding) {
            finding.cause = "not a zip: compound file " + look.what;
            finding.namesAllItems = look.names.empty();
            for (const std::string& name : look.names) findings.AddItem(finding, {{}, name});
        });
        return;
    }
    if (FindDirectoryFault(file).kind != DirectoryFault::Kind::NoArchive) return;
    const FileLook look = LookAtFile(start, FileNameOf(subject.file.path), file.FileSize());
    findings.AddStop(FindingId::NotAZip, [&](Finding& finding) {
        finding.cause = "not a zip archive";
        if (look.kind == nullptr) return;
        finding.cause = "not a zip: looks like " + std::string(look.kind);
        finding.hint = look.hint;
    });
}

}  // namespace

void CheckFileItself(const Subject& subject, Findings& findings) {
    if (subject.Opens()) return;
    if (!IsLocalText(subject.file.path)) {
        findings.AddStop(FindingId::NameOutsideLocale, [](Finding& finding) {
            finding.cause = "the file name is not text in the encoding of the locale";
        });
        return;
    }
    if (IsFolder(subject.file.path)) {
        findings.AddStop(FindingId::UnreadableFile, [](Finding& finding) {
            finding.cause = "is a folder; commands for several files search it with -r";
            finding.hint = "add -r, or name a file in it";
        });
        return;
    }
    const std::string trouble = WhyUnreadable(subject.file.path);
    if (!trouble.empty() || !subject.container) {
        findings.AddStop(FindingId::UnreadableFile, [&](Finding& finding) {
            finding.cause = trouble.empty() ? "cannot be read" : trouble;
        });
        return;
    }
    if (subject.container->FileSize() == 0) {
        findings.AddStop(FindingId::EmptyFile, [](Finding& finding) { finding.cause = "empty file"; });
        return;
    }
    if (!subject.HasDirectory()) CheckKind(subject, findings);
}

}  // namespace vexpa_tool
