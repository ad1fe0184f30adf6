// hosts/mrvcharacter/mrvProgressBar.h
// Shows how far a command over many files is.
#pragma once

#include "mrvCore/system/progress/mrvIProgressListener.h"

namespace mrvcharacter {

/// A line on standard error that is there only while the process runs; nothing at all where standard error
/// is not a terminal.
class ProgressBar : public mrv::IProgressListener
{
public:
    ProgressBar();
    ~ProgressBar() override { clear(); }
    ProgressBar(const ProgressBar&) = delete;
    ProgressBar& operator=(const ProgressBar&) = delete;

    void onProgressEvent(const mrv::ProgressEvent& event) override;

    /// Takes the line away until the next event; call it before anything is printed.
    void clear();

private:
    bool _isTerminal;
    bool _isShown = false;
};

} // namespace mrvcharacter
