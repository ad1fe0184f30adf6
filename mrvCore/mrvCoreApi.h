// mrvCore/mrvCoreApi.h
// Marks what the shared library shows to its hosts; everything else is hidden.
#pragma once

#define MRV_CORE_API __attribute__((visibility("default")))
