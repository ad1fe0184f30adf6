// mrvCore/graphicalEditorNodes/mrvGraphicalNodeLogEventListener.h
// Shows the messages of the log on a node.
#pragma once

#include "mrvCore/system/log/mrvILogger.h"

namespace mrv {

class AbstractGraphicalNode;

/// While it lives, the last message of the log, from whatever module and thread, is the node's status.
///
/// An error makes the node FAILED, a warning WARNING, anything else VALID: an information after an error
/// thus clears it.
/// Threads: messages come on any thread and write `_debugStatus` and `_statusInfo` of the node under the
/// log's lock alone. Who reads them meanwhile sees to it that no other thread logs.
class MRV_CORE_API GraphicalNodeLogEventListener : public ILogger
{
public:
    /// The node is borrowed; null ignores the messages.
    explicit GraphicalNodeLogEventListener(AbstractGraphicalNode* graphicalNode = nullptr)
        : _graphicalNode(graphicalNode)
    {}

    void trace(Log::Module module, Log::Severity severity, const char* message, const char* file, int line,
               const char* function) override;

    AbstractGraphicalNode* _graphicalNode;
};

} // namespace mrv
