#include "tests/hostile/xml/Outside.h"

#include <arpa/inet.h>
#include <sys/inotify.h>
#include <sys/socket.h>
#include <unistd.h>

#include <stdexcept>

namespace vexpa_test {

namespace {

int Checked(int result) {
    if (result < 0) throw std::runtime_error("cannot watch");
    return result;
}

sockaddr_in Loopback() {
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    return address;
}

int Listen() {
    const int port = Checked(socket(AF_INET, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0));
    const sockaddr_in address = Loopback();
    Checked(bind(port, reinterpret_cast<const sockaddr*>(&address), sizeof address));
    Checked(listen(port, 8));
    return port;
}

int Watch(const std::string& path) {
    const int watch = Checked(inotify_init1(IN_NONBLOCK | IN_CLOEXEC));
    const std::string folder = path.substr(0, path.rfind('/'));
    Checked(inotify_add_watch(watch, folder.c_str(), IN_OPEN | IN_ACCESS));
    return watch;
}

}  // namespace

Outside::Outside(const std::string& content)
    : file_(content, "outside.xml"), watch_(Watch(file_.Path())), port_(Listen()) {}

Outside::~Outside() {
    close(port_);
    close(watch_);
}

std::string Outside::Url() const {
    sockaddr_in address = Loopback();
    socklen_t size = sizeof address;
    Checked(getsockname(port_, reinterpret_cast<sockaddr*>(&address), &size));
    return "http://127.0.0.1:" + std::to_string(ntohs(address.sin_port)) + "/outside.xml";
}

bool Outside::WasReached() {
    bool reached = false;
    alignas(inotify_event) char events[4096];
    while (read(watch_, events, sizeof events) > 0) reached = true;
    for (int caller; (caller = accept(port_, nullptr, nullptr)) >= 0; reached = true) close(caller);
    return reached;
}

}  // namespace vexpa_test
