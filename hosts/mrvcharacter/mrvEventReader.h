// hosts/mrvcharacter/mrvEventReader.h
// Cuts the stream of performance events into lines for a person.
#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <string>
#include <vector>

namespace mrvcharacter {

/// Of one connection. Bytes may come in any pieces, and may be anything: what is no event is passed over.
class EventReader
{
public:
    /// Takes the next bytes, and returns a line for each span that ended and each measurement.
    std::string read(const char* bytes, size_t count);

private:
    struct Event
    {
        int type = 0;
        unsigned long long threadID = 0;
        unsigned long long date = 0; ///< nanoseconds
        std::string name;
        double timeID = 0.0;
        unsigned int integerID = 0;
        double value = 0.0;
        int unit = 0;
        int flag = 0;
    };

    size_t findEnd(size_t begin) const;
    static bool parse(const std::string& object, Event& event);
    std::string toLine(const Event& event);
    std::string endSpan(const Event& end);

    std::string _buffer;                                         ///< from the start of an object
    std::map<unsigned long long, std::vector<Event>> _openSpans; ///< by thread
};

} // namespace mrvcharacter
