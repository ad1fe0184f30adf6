// mrvCore/graphicalEditorNodes/mrvGraphicalNodeLogEventListener.cpp
#include "mrvCore/graphicalEditorNodes/mrvGraphicalNodeLogEventListener.h"

#include "mrvCore/graphicalEditorNodes/mrvAbstractGraphicalNode.h"

namespace mrv {

void GraphicalNodeLogEventListener::trace(Log::Module, Log::Severity severity, const char* message,
                                          const char*, int, const char*)
{
    if (_graphicalNode == nullptr)
        return;
    using DebugStatus = AbstractGraphicalNode::DebugStatus;
    _graphicalNode->_debugStatus = severity == Log::LOG_ERROR     ? DebugStatus::FAILED
                                   : severity == Log::LOG_WARNING ? DebugStatus::WARNING
                                                                  : DebugStatus::VALID;
    _graphicalNode->_statusInfo = message == nullptr ? "" : message;
}

} // namespace mrv
