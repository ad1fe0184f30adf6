// mrvCore/system/log/mrvLogText.cpp
// The text of one message while it is built.
#include "mrvCore/system/log/mrvLogText.h"

#include <algorithm>
#include <atomic>
#include <charconv>
#include <iterator>
#include <locale>
#include <string>

namespace mrv::internal {

namespace {

// Writes numbers as the classic locale does, which spends most of its time on the C library's locale.
class ClassicNumbers : public std::num_put<char>
{
    using Flags = std::ios_base;

    iter_type do_put(iter_type out, std::ios_base& format, char fill, double value) const override
    {
        constexpr auto rare = Flags::showpos | Flags::showpoint | Flags::uppercase | Flags::scientific;
        constexpr std::streamsize mostDigits = 32;
        if (format.width() != 0 || (format.flags() & rare) || format.precision() > mostDigits)
            return std::num_put<char>::do_put(out, format, fill, value);
        char text[400]; // the greatest number has 309 digits before the point
        const auto notation =
            format.flags() & Flags::fixed ? std::chars_format::fixed : std::chars_format::general;
        const auto end =
            std::to_chars(text, std::end(text), value, notation, static_cast<int>(format.precision()));
        return std::copy(text, end.ptr, out);
    }
};

const std::locale& getClassicLocale()
{
    // Never destroyed: a host may log to the very end of the process.
    static const std::locale& locale = *new std::locale(std::locale::classic(), new ClassicNumbers);
    return locale;
}

// Characters that keep their room from one text to the next.
class TextBuffer : public std::streambuf
{
public:
    TextBuffer() : _text(256, '\0') { rewind(); }

    const char* terminated()
    {
        sputc('\0');
        pbump(-1);
        return pbase();
    }
    void rewind() { setp(_text.data(), _text.data() + _text.size()); }
    size_t room() const { return _text.size(); }

protected:
    int_type overflow(int_type character) override
    {
        const size_t size = static_cast<size_t>(pptr() - pbase());
        _text.resize(2 * size);
        rewind();
        for (size_t left = size; left != 0;)
        {
            const size_t step = std::min<size_t>(left, 1 << 30);
            pbump(static_cast<int>(step));
            left -= step;
        }
        return traits_type::eq_int_type(character, traits_type::eof())
                   ? traits_type::not_eof(character)
                   : sputc(traits_type::to_char_type(character));
    }

private:
    std::string _text;
};

class TextStream : public std::ostream
{
public:
    TextStream() : std::ostream(nullptr)
    {
        imbue(getClassicLocale());
        rdbuf(&buffer);
    }

    void reset()
    {
        buffer.rewind();
        exceptions(goodbit);
        clear();
        flags(skipws | dec);
        precision(6);
        width(0);
        fill(' ');
    }

    TextBuffer buffer;
};

// As many as threads may build texts at a time without making streams.
std::atomic<TextStream*> gWaiting[4];

std::ostream& takeStream()
{
    for (std::atomic<TextStream*>& place : gWaiting)
        if (TextStream* const stream = place.exchange(nullptr, std::memory_order_acquire))
            return *stream;
    return *new TextStream;
}

TextBuffer& bufferOf(std::ostream& stream)
{
    return static_cast<TextStream&>(stream).buffer;
}

} // namespace

LogText::LogText() : _stream(takeStream()) {}

LogText::~LogText()
{
    constexpr size_t mostRoom = 1 << 16;
    TextStream* const stream = static_cast<TextStream*>(&_stream);
    if (stream->buffer.room() <= mostRoom)
    {
        stream->reset();
        for (std::atomic<TextStream*>& place : gWaiting)
        {
            TextStream* none = nullptr;
            if (place.compare_exchange_strong(none, stream, std::memory_order_release,
                                              std::memory_order_relaxed))
                return;
        }
    }
    delete stream;
}

void LogText::trace(Log::Module module, Log::Severity severity, const char* file, int line,
                    const char* function)
{
    getLog()->trace(module, severity, bufferOf(_stream).terminated(), file, line, function);
}

void LogText::trace(Log::Module module, Log::Severity severity, Log::TraceKey& key, const char* file,
                    int line, const char* function)
{
    getLog()->trace(module, severity, key, bufferOf(_stream).terminated(), file, line, function);
}

void LogText::freeWaitingStreams()
{
    for (std::atomic<TextStream*>& place : gWaiting)
        delete place.exchange(nullptr, std::memory_order_acquire);
}

} // namespace mrv::internal
