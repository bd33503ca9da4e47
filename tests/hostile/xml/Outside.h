// tests/hostile/xml/Outside.h - a file and a port that notice when they are asked.
#ifndef VEXPA_TESTS_HOSTILE_XML_OUTSIDE_H_
#define VEXPA_TESTS_HOSTILE_XML_OUTSIDE_H_

#include <string>

#include "tests/support/ScratchFile.h"

namespace vexpa_test {

// What a document must not reach: a file beside it, and a server on this machine.
class Outside {
public:
    explicit Outside(const std::string& content);
    ~Outside();
    Outside(const Outside&) = delete;
    Outside& operator=(const Outside&) = delete;

    const std::string& Path() const { return file_.Path(); }
    std::string Url() const;  // http, of the port

    // Whether anybody opened the file or its folder, or connected, since the last question.
    bool WasReached();

private:
    ScratchFile file_;
    int watch_;
    int port_;
};

}  // namespace vexpa_test

#endif  // VEXPA_TESTS_HOSTILE_XML_OUTSIDE_H_
