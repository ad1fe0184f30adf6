// mrvCore/system/log/mrvLogMacros.h
// One statement per message: ask the log, build the text, trace it. For .cpp files only.
#pragma once

#include "mrvCore/system/log/mrvLog.h"
#include "mrvCore/system/log/mrvLogText.h"

/// MRV_LOG(SDK, LOG_WARNING, "File '" << name << "' is empty"): any number of times. Does nothing without a
/// log, and builds no text for a message that is filtered out. Numbers are written in the classic locale.
#define MRV_LOG(module, severity, text)                                                                      \
    do                                                                                                       \
    {                                                                                                        \
        if (::mrv::internal::mustLog(::mrv::Log::module, ::mrv::Log::severity))                              \
            MRV_INTERNAL_TRACE(text, ::mrv::Log::module, ::mrv::Log::severity);                              \
    } while (false)

/// The same for a site that may repeat per frame, entity or bone: printed five times, then counted.
#define MRV_LOG_LIMITED(module, severity, text)                                                              \
    do                                                                                                       \
    {                                                                                                        \
        if (::mrv::internal::mustLog(::mrv::Log::module, ::mrv::Log::severity))                              \
        {                                                                                                    \
            static ::mrv::Log::TraceKey mrvTraceKey(0);                                                      \
            if (::mrv::getLog()->mustLog(::mrv::Log::module, ::mrv::Log::severity, mrvTraceKey))             \
                MRV_INTERNAL_TRACE(text, ::mrv::Log::module, ::mrv::Log::severity, mrvTraceKey);             \
        }                                                                                                    \
    } while (false)

#define MRV_INTERNAL_TRACE(text, ...)                                                                        \
    do                                                                                                       \
    {                                                                                                        \
        ::mrv::internal::LogText mrvLogText;                                                                 \
        mrvLogText.stream() << text;                                                                         \
        mrvLogText.trace(__VA_ARGS__, __FILE__, __LINE__, __func__);                                         \
    } while (false)
