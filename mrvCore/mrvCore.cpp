// mrvCore/mrvCore.cpp
#include "mrvCore/mrvCore.h"

#include "mrvCore/math/random/mrvRandomNumberGenerator.h"
#include "mrvCore/math/rotations/mrvQuaternion.h"
#include "mrvCore/math/types/mrvVector3.h"
#include "mrvCore/system/inspection/mrvRTTI.h"
#include "mrvCore/system/inspection/mrvRTTIConcat.h"
#include "mrvCore/system/inspection/mrvTypesManager.h"
#include "mrvCore/system/log/mrvLog.h"
#include "mrvCore/system/thread/mrvMutex.h"
#include "mrvCore/system/thread/mrvScopedLock.h"
#include "mrvCore/system/utils/mrvStringOperators.h"

#include <array>
#include <cstdint>

namespace mrv {

namespace {

uint32_t s_initCount = 0;
Mutex s_initLock;

struct Registration
{
    void (*create)(bool withAttributes);
    void (*destroy)(bool withAttributes);
};

template <typename... Classes>
constexpr std::array<Registration, sizeof...(Classes)> makeRegistrations()
{
    return { { { &Classes::createClassRTTI, &Classes::destroyClassRTTI }... } };
}

// The persistent classes in the order of their registration, which is permanent.
constexpr auto registrations = makeRegistrations<>();

void registerClasses()
{
    for (const Registration& registration : registrations)
        registration.create(true);
}

void removeClasses()
{
    for (auto registration = registrations.rbegin(); registration != registrations.rend(); ++registration)
        registration->destroy(true);
}

} // namespace

void initCore()
{
    const ScopedLock<Mutex> lock(s_initLock);
    if (s_initCount != 0)
    {
        ++s_initCount;
        return;
    }
    // The name arenas are rewound here alone: the names of a former start are reused from now on.
    alphaNumericCopiesBufferIndex = 0;
    RTTIConcatBufferIndex = 0;
    allocateLog();
    RTTI::allocateStaticRTTIs();
    RTTI::createRTTIs();
    // Built here, before any thread could race to build them.
    Vector3::getNullVector();
    Quaternion::getNullVector();
    Quaternion::getIdentity();
    registerClasses();
    Singleton<RandomNumberGenerator>::create();
    Singleton<TypesManager>::create();
    ++s_initCount;
}

void finishCore(bool)
{
    const ScopedLock<Mutex> lock(s_initLock);
    if (--s_initCount != 0)
        return;
    Singleton<TypesManager>::destroy();
    Singleton<RandomNumberGenerator>::destroy();
    removeClasses();
    RTTI::destroyRTTIs();
    RTTI::deallocateStaticRTTIs();
    deallocateLog();
}

bool isCoreFinished()
{
    const ScopedLock<Mutex> lock(s_initLock);
    return s_initCount == 0;
}

} // namespace mrv
