#include "tool/run/Interrupt.h"

#include <unistd.h>

#include <csignal>

#include "tool/ExitStatus.h"

namespace vexpa_tool {

namespace {

volatile std::sig_atomic_t interrupted = 0;

void OnInterrupt(int) {
    interrupted = 1;
    alarm(1);
}

void OnAlarm(int) {
    _exit(kInterrupted);
}

// A write that is interrupted goes on, so that no result is cut off in the middle.
void Handle(int signal, void (*handler)(int)) {
    struct sigaction action = {};
    action.sa_handler = handler;
    action.sa_flags = SA_RESTART;
    sigaction(signal, &action, nullptr);
}

}  // namespace

void NoteInterrupts() {
    struct sigaction inherited = {};
    sigaction(SIGINT, nullptr, &inherited);
    // Whoever starts a job in the background spares it the interrupts of the terminal.
    if (inherited.sa_handler == SIG_IGN) return;
    Handle(SIGINT, OnInterrupt);
    Handle(SIGALRM, OnAlarm);
}

void StopIfInterrupted() {
    if (interrupted != 0) throw FatalError(kInterrupted, "interrupted");
}

}  // namespace vexpa_tool
