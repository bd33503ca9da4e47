// vexpa/base/Object.h - the root of every interface.
#ifndef VEXPA_BASE_OBJECT_H_
#define VEXPA_BASE_OBJECT_H_

namespace tarn {

// What every interface of the library begins with: two destructors and Release.
//
// Lifetime  Whoever holds an object gives it up with Release, mostly by way of a Handle.
//           What a class hands out as [borrowed] is not to be released.
// Errors    A look-up answers null or an empty handle for "not there", an operation with an out
//           argument an HRESULT. Only the standard library throws (out of memory).
// Threads   One thread at a time, if the class does not say otherwise. Nothing is locked, and
//           reference counts are plain integers.
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
