#pragma once

#include <cstdint>
#include <utility>

namespace ostrand {

// Owns one count of an object that has addRef() and release(). One thread: counts are plain integers.
template <class T>
class Ref {
 public:
  Ref() = default;
  Ref(std::nullptr_t) {}
  Ref(T* object) : mObject(object) {
    if (mObject) mObject->addRef();
  }
  Ref(const Ref& other) : Ref(other.mObject) {}
  Ref(Ref&& other) noexcept : mObject(std::exchange(other.mObject, nullptr)) {}
  template <class U>
  Ref(const Ref<U>& other) : Ref(other.get()) {}
  ~Ref() {
    if (mObject) mObject->release();
  }
  Ref& operator=(Ref other) noexcept {
    std::swap(mObject, other.mObject);
    return *this;
  }

  // Takes over a count that the caller already holds.
  static Ref adopt(T* object) {
    Ref ref;
    ref.mObject = object;
    return ref;
  }

  T* get() const { return mObject; }
  T* operator->() const { return mObject; }
  T& operator*() const { return *mObject; }
  explicit operator bool() const { return mObject != nullptr; }
  friend bool operator==(const Ref& a, const Ref& b) { return a.mObject == b.mObject; }

 private:
  T* mObject = nullptr;
};

// For objects that are not component interfaces: a count and a virtual end.
class Counted {
 public:
  Counted() = default;
  Counted(const Counted&) = delete;
  Counted& operator=(const Counted&) = delete;
  void addRef() { ++mCount; }
  void release() {
    if (--mCount == 0) delete this;
  }

 protected:
  virtual ~Counted() = default;

 private:
  std::uint32_t mCount = 0;
};

}  // namespace ostrand
