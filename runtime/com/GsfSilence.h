// runtime/com/GsfSilence.h - keeps the compound file library from talking about bad files.
#ifndef VEXPA_RUNTIME_COM_GSFSILENCE_H_
#define VEXPA_RUNTIME_COM_GSFSILENCE_H_

namespace vexpa_runtime {

// While one lives, what libgsf logs from this thread is dropped. What it logs from other threads
// goes to GLib's default handler meanwhile, past one that the host has set; the host's handlers and
// the messages of other libraries are left as they are.
class GsfSilence {
public:
    GsfSilence() noexcept;
    ~GsfSilence();
    GsfSilence(const GsfSilence&) = delete;
    GsfSilence& operator=(const GsfSilence&) = delete;
};

}  // namespace vexpa_runtime

#endif  // VEXPA_RUNTIME_COM_GSFSILENCE_H_
