// mrvCore/graphicalEditorNodes/mrvStickyNotes.cpp
#include "mrvCore/graphicalEditorNodes/mrvStickyNotes.h"

namespace mrv {

StickyNotes::~StickyNotes() = default;

StickyNotes* StickyNotes::create() const
{
    return new StickyNotes;
}

} // namespace mrv
