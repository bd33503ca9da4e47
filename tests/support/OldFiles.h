// tests/support/OldFiles.h - files that look as if nobody had written to them for long.
#ifndef VEXPA_TESTS_SUPPORT_OLDFILES_H_
#define VEXPA_TESTS_SUPPORT_OLDFILES_H_

namespace vexpa_test {

// What was written a moment ago is read twice and nothing of it is kept; tests and fuzzers write
// their files a moment ago. While one of these lives, all files are an hour old for the program
// that links vexpa_old_files, and for the shared libraries under it. One at a time.
class OldFiles {
public:
    OldFiles();
    ~OldFiles();
    OldFiles(const OldFiles&) = delete;
    OldFiles& operator=(const OldFiles&) = delete;
};

}  // namespace vexpa_test

#endif  // VEXPA_TESTS_SUPPORT_OLDFILES_H_
