// hosts/mrvcharacter/mrvProgressCounter.h
// Shows how far a command over many files is.
#pragma once

#include <cstddef>
#include <string>

namespace mrvcharacter {

/// A line on standard error that is there only while a file is worked on; nothing at all for a single file,
/// and where standard error is not a terminal.
class ProgressCounter
{
public:
    explicit ProgressCounter(size_t total);
    ~ProgressCounter() { clear(); }
    ProgressCounter(const ProgressCounter&) = delete;
    ProgressCounter& operator=(const ProgressCounter&) = delete;

    /// Counts one more file and shows its name.
    void next(const std::string& file);
    /// Takes the line away; call it before anything is printed.
    void clear();

private:
    size_t _total;
    size_t _count = 0;
    bool _isShown = false;
};

} // namespace mrvcharacter
