// mrvCore/system/events/mrvEvent.h
// What a source tells its listeners.
#pragma once

namespace mrv {

/// Base of an event; remembers, without owning it, the source that the event is about.
template <typename Source>
class Event
{
public:
    explicit Event(const Source& source) : source_(&source) {}
    Event(const Event&) = default;
    Event& operator=(const Event&) = default;
    virtual ~Event() = default;

    /// Never null; valid as long as the source lives.
    const Source* getSource() const { return source_; }

private:
    const Source* source_;
};

} // namespace mrv
