// vexpa/base/Object.h - the root of every interface.
#ifndef VEXPA_BASE_OBJECT_H_
#define VEXPA_BASE_OBJECT_H_

namespace tarn {

// What every interface of the library begins with: two destructors and Release.
//
// The order of the virtual members is the binary interface: nothing is inserted,
// moved or removed. tests/abi/SlotOrderTest.cpp fails when it changes.
class Object {
public:
    virtual ~Object() = default;

    // Gives up the caller's hold: ends an object that is not shared, lowers the count of
    // one that is.
    virtual void Release() = 0;

    Object(const Object&) = delete;
    Object& operator=(const Object&) = delete;

protected:
    Object() noexcept = default;
};

}  // namespace tarn

#endif  // VEXPA_BASE_OBJECT_H_
