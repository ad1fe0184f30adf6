// mrvCore/system/inspection/mrvRTTICreator.h
// Factories by which the registry makes an instance of a registered class.
#pragma once

namespace mrv {

/// Makes instances of one class. Owned by the registry once it is handed to RTTI::create.
class IRTTICreator
{
public:
    virtual ~IRTTICreator() = default;

    /// A new default-constructed instance, owned by the caller.
    virtual void* create() const = 0;

    /// Deletes what create() made; a factory that does not say how leaves it alone.
    virtual void destroy(void*) const {}
};

/// The factory of a class with a default constructor.
template <typename T>
class RTTICreatorT : public IRTTICreator
{
public:
    void* create() const override { return new T(); }
    void destroy(void* instance) const override { delete static_cast<T*>(instance); }
};

} // namespace mrv
