// RecordSlot<T>: one record slot of the implementation object. The record
// lives inside the slot, so an object with all its records is one allocation
// instead of one per record; a slot can still be empty (never created, or
// reset) and is used like the owning pointer it stands for.
#ifndef NVX_CORE_RECORDSLOT_H_
#define NVX_CORE_RECORDSLOT_H_

#include <new>

template <class T>
class RecordSlot {
 public:
  RecordSlot() = default;
  RecordSlot(const RecordSlot&) = delete;
  RecordSlot& operator=(const RecordSlot&) = delete;
  ~RecordSlot() { reset(); }

  // Creates the record with its defaults, unless the slot holds one already.
  void Create() {
    if (m_record == nullptr) m_record = ::new (static_cast<void*>(m_storage)) T();
  }
  // Destroys the record; the slot is empty afterwards.
  void reset() {
    if (m_record == nullptr) return;
    m_record->~T();
    m_record = nullptr;
  }

  T* get() const { return m_record; }
  T* operator->() const { return m_record; }
  T& operator*() const { return *m_record; }
  explicit operator bool() const { return m_record != nullptr; }

 private:
  alignas(T) unsigned char m_storage[sizeof(T)];
  T* m_record = nullptr;
};

#endif  // NVX_CORE_RECORDSLOT_H_
