// vexpa/base/Noncopyable.h - forbids copying of what owns resources.
#ifndef VEXPA_BASE_NONCOPYABLE_H_
#define VEXPA_BASE_NONCOPYABLE_H_

namespace tarn {

// A base without data or virtual operations, so it adds nothing to an object's layout.
class Noncopyable {
public:
    Noncopyable(const Noncopyable&) = delete;
    Noncopyable& operator=(const Noncopyable&) = delete;

protected:
    Noncopyable() noexcept = default;
    ~Noncopyable() = default;
};

}  // namespace tarn

#endif  // VEXPA_BASE_NONCOPYABLE_H_
