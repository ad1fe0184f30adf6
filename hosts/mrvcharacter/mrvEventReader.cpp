// hosts/mrvcharacter/mrvEventReader.cpp
#include "hosts/mrvcharacter/mrvEventReader.h"

#include <algorithm>
#include <cstdio>

namespace mrvcharacter {

namespace {

const std::string keepAlive = "{ }";
const std::string beginOfEvent = "{\"type\":";
const std::string endOfName = "\",\"timeID\":";
const std::string lastKey = ",\"flag\":";

// A sender that never ends an object, or never ends its spans, gets no more memory than this.
constexpr size_t maximumObject = 65536;
constexpr size_t maximumOpenSpans = 10000;
constexpr size_t maximumThreads = 1000;

constexpr int perfType = 0;
constexpr int counterUnit = 7;
constexpr int noUnit = 8;
constexpr const char* units[] = { "s", "ms", "us", "ns", "B", "kB", "MB", "", "" };

bool isPrefix(const std::string& text, size_t begin, const std::string& of)
{
    return text.compare(begin, of.size(), of, 0, std::min(of.size(), text.size() - begin)) == 0;
}

std::string toPrintable(std::string text)
{
    std::replace_if(
        text.begin(), text.end(), [](unsigned char c) { return c < ' ' || c == 127; }, '?');
    return text;
}

} // namespace

std::string EventReader::read(const char* bytes, size_t count)
{
    _buffer.append(bytes, count);
    std::string lines;
    size_t begin = 0;
    while (begin < _buffer.size())
    {
        const bool isEvent = isPrefix(_buffer, begin, beginOfEvent);
        if (isPrefix(_buffer, begin, keepAlive) && _buffer.size() - begin >= keepAlive.size())
        {
            begin += keepAlive.size();
            continue;
        }
        const size_t end = isEvent ? findEnd(begin) : std::string::npos;
        const bool isAwaited = isEvent || isPrefix(_buffer, begin, keepAlive);
        if (end == std::string::npos && isAwaited && _buffer.size() - begin < maximumObject)
            break;
        Event event;
        if (end != std::string::npos && parse(_buffer.substr(begin, end - begin), event))
            lines += toLine(event);
        // What is no object is left out up to the next that may be one.
        begin = end != std::string::npos ? end : std::min(_buffer.find('{', begin + 1), _buffer.size());
    }
    _buffer.erase(0, begin);
    return lines;
}

/// Behind the object; names are not escaped, so a brace alone says nothing.
size_t EventReader::findEnd(size_t begin) const
{
    for (size_t key = _buffer.find(lastKey, begin); key != std::string::npos;
         key = _buffer.find(lastKey, key + 1))
    {
        const size_t end = _buffer.find_first_not_of("-0123456789", key + lastKey.size());
        if (end != std::string::npos && _buffer[end] == '}')
            return end + 1;
    }
    return std::string::npos;
}

bool EventReader::parse(const std::string& object, Event& event)
{
    int begin = 0;
    if (std::sscanf(object.c_str(), "{\"type\":%d,\"threadID\":%llu,\"date\":%llu,\"name\":\"%n", &event.type,
                    &event.threadID, &event.date, &begin) != 3 ||
        begin == 0)
        return false;
    const size_t name = static_cast<size_t>(begin);
    const size_t end = object.rfind(endOfName);
    if (end == std::string::npos || end < name)
        return false;
    event.name = object.substr(name, end - name);
    return std::sscanf(object.c_str() + end + endOfName.size(),
                       "%lf,\"integerID\":%u,\"value\":%lf,\"unit\":%d,\"flag\":%d", &event.timeID,
                       &event.integerID, &event.value, &event.unit, &event.flag) == 5;
}

std::string EventReader::toLine(const Event& event)
{
    const bool isSpan = event.type == perfType && event.unit == noUnit;
    if (isSpan && event.flag == 1)
        return endSpan(event);
    if (isSpan)
    {
        if (_openSpans.size() < maximumThreads || _openSpans.count(event.threadID) != 0)
            if (std::vector<Event>& spans = _openSpans[event.threadID]; spans.size() < maximumOpenSpans)
                spans.push_back(event);
        return "";
    }
    char number[64];
    std::snprintf(number, sizeof(number), "%12g ", event.value);
    const bool isUnit = event.unit >= 0 && event.unit < noUnit && event.unit != counterUnit;
    return "counter " + std::string(number) + (isUnit ? units[event.unit] : "") + '\t' +
           toPrintable(event.name) + '\n';
}

std::string EventReader::endSpan(const Event& end)
{
    std::vector<Event>& spans = _openSpans[end.threadID];
    const auto begin = std::find_if(spans.rbegin(), spans.rend(), [&](const Event& span) {
        return span.name == end.name && span.timeID == end.timeID && span.integerID == end.integerID;
    });
    if (begin == spans.rend())
        return "";
    char duration[64];
    std::snprintf(duration, sizeof(duration), "%12.3f ms",
                  (static_cast<double>(end.date) - static_cast<double>(begin->date)) * 1e-6);
    spans.erase(std::next(begin).base());
    return "span    " + std::string(duration) + '\t' + toPrintable(end.name) + '\n';
}

} // namespace mrvcharacter
