// mrvCore/graphicalEditorNodes/mrvStickyNotes.h
// A note that lies among the nodes of a container.
#pragma once

#include "mrvCore/math/types/mrvVector2.h"
#include "mrvCore/math/types/mrvVector4.h"
#include "mrvCore/mrvCoreApi.h"
#include "mrvCore/system/containers/mrvString.h"
#include "mrvCore/system/genericPatterns/mrvReferenceCounter.h"

namespace mrv {

class AbstractGraphicalContainerNode;

/// Plain data of the display; position and size in the units of the editor. Colours are RGBA in [0, 1].
/// Threads: none; one thread edits a graph.
class MRV_CORE_API StickyNotes : public ReferenceCounter
{
public:
    ~StickyNotes() override;

    /// A new note with the default values, the caller's.
    virtual StickyNotes* create() const;

    bool _selected = false;
    MrvString _title;
    MrvString _text;
    int _textSize = 10;
    Vector2 _pos;
    Vector2 _size = Vector2(1.0f, 1.0f);
    Vector4 _color = Vector4(1.0f, 1.0f, 0.0f, 0.5f);
    Vector4 _textColor = Vector4(0.0f, 0.0f, 0.0f, 1.0f);
    bool _showTitle = true;
    bool _titleOnTop = true;
    AbstractGraphicalContainerNode* _container = nullptr; ///< borrowed; set and cleared by the container
};

} // namespace mrv
