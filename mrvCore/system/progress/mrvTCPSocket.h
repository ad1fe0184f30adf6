// mrvCore/system/progress/mrvTCPSocket.h
// The client side of one TCP connection over IPv4.
#pragma once

#include "mrvCore/mrvCoreApi.h"

#include <sys/types.h>

namespace mrv {

// `interruption` is a descriptor whose becoming readable ends a wait, which then counts as a failure; -1 for
// none. It is what lets another thread stop one that waits for a server.

/// Connects to a server at a dotted address, without a time limit. Returns the descriptor, which does not
/// block, or 0.
MRV_CORE_API int openTCPSocket(const char* address, unsigned short port, int interruption = -1);

/// Gives the descriptor back.
MRV_CORE_API void closeTCPSocket(int socket);

/// Sends the whole text without its terminator and returns its length, -1 on failure. A server that takes
/// nothing for two seconds counts as lost. A lost connection raises no signal.
MRV_CORE_API ssize_t sendTCPMessage(int socket, const char* text, int interruption = -1);

} // namespace mrv
