// mrvCore/animation/mrvCharacterVersions.cpp
#include "mrvCore/animation/mrvCharacterVersions.h"

#include "mrvCore/animation/_compatibility/mrvMaravoCharacterV0.h"
#include "mrvCore/animation/_compatibility/mrvMaravoCharacterV1.h"
#include "mrvCore/animation/_compatibility/mrvMaravoCharacterV10.h"
#include "mrvCore/animation/_compatibility/mrvMaravoCharacterV11.h"
#include "mrvCore/animation/_compatibility/mrvMaravoCharacterV12.h"
#include "mrvCore/animation/_compatibility/mrvMaravoCharacterV13.h"
#include "mrvCore/animation/_compatibility/mrvMaravoCharacterV14.h"
#include "mrvCore/animation/_compatibility/mrvMaravoCharacterV15.h"
#include "mrvCore/animation/_compatibility/mrvMaravoCharacterV16.h"
#include "mrvCore/animation/_compatibility/mrvMaravoCharacterV17.h"
#include "mrvCore/animation/_compatibility/mrvMaravoCharacterV18.h"
#include "mrvCore/animation/_compatibility/mrvMaravoCharacterV19.h"
#include "mrvCore/animation/_compatibility/mrvMaravoCharacterV2.h"
#include "mrvCore/animation/_compatibility/mrvMaravoCharacterV20.h"
#include "mrvCore/animation/_compatibility/mrvMaravoCharacterV21.h"
#include "mrvCore/animation/_compatibility/mrvMaravoCharacterV22.h"
#include "mrvCore/animation/_compatibility/mrvMaravoCharacterV23.h"
#include "mrvCore/animation/_compatibility/mrvMaravoCharacterV3.h"
#include "mrvCore/animation/_compatibility/mrvMaravoCharacterV4.h"
#include "mrvCore/animation/_compatibility/mrvMaravoCharacterV5.h"
#include "mrvCore/animation/_compatibility/mrvMaravoCharacterV6.h"
#include "mrvCore/animation/_compatibility/mrvMaravoCharacterV7.h"
#include "mrvCore/animation/_compatibility/mrvMaravoCharacterV8.h"
#include "mrvCore/animation/_compatibility/mrvMaravoCharacterV9.h"
#include "mrvCore/animation/mrvMaravoCharacter.h"
#include "mrvCore/system/debug/mrvAssert.h"

#include <cstddef>

namespace mrv {

namespace {

template <class Character>
MaravoCharacterInterface* create()
{
    return new Character();
}

/// One rung of the ladder: consumes a character and gives that of the next version.
template <class Old, class New, void (New::*createFrom)(Old&)>
MaravoCharacterInterface* climb(MaravoCharacterInterface* character)
{
    Old* const oldCharacter = dynamic_cast<Old*>(character);
    MRV_ASSERT(oldCharacter != NULL);
    New* const next = new New();
    (next->*createFrom)(*oldCharacter);
    delete character;
    return next;
}

struct CharacterVersion
{
    const char* productVersion; ///< of the release that brought it; empty for the first ones
    MaravoCharacterInterface* (*create)();
    MaravoCharacterInterface* (*climb)(MaravoCharacterInterface*); ///< null for the current version
    int next;                                                      ///< the version that the rung gives
};

template <class Old, class New, void (New::*createFrom)(Old&)>
constexpr CharacterVersion makeVersion(const char* productVersion, int next)
{
    return { productVersion, &create<Old>, &climb<Old, New, createFrom>, next };
}

// By version number. The first versions, and the last one with a tree of assets, pass over others.
constexpr CharacterVersion versions[] = {
    // clang-format off
    makeVersion<MaravoCharacterV0, MaravoCharacterV4, &MaravoCharacterV4::createFromV0>("", 4),
    makeVersion<MaravoCharacterV1, MaravoCharacterV4, &MaravoCharacterV4::createFromV1>("", 4),
    makeVersion<MaravoCharacterV2, MaravoCharacterV4, &MaravoCharacterV4::createFromV2>("", 4),
    makeVersion<MaravoCharacterV3, MaravoCharacterV4, &MaravoCharacterV4::createFromV3>("4.0.2", 4),
    makeVersion<MaravoCharacterV4, MaravoCharacterV6, &MaravoCharacterV6::createFromV4>("4.0.3", 6),
    makeVersion<MaravoCharacterV5, MaravoCharacterV6, &MaravoCharacterV6::createFromV5>("5.0.1", 6),
    makeVersion<MaravoCharacterV6, MaravoCharacterV7, &MaravoCharacterV7::createFromV6>("5.0.4", 7),
    makeVersion<MaravoCharacterV7, MaravoCharacterV8, &MaravoCharacterV8::createFromV7>("5.0.4_develop", 8),
    makeVersion<MaravoCharacterV8, MaravoCharacterV9, &MaravoCharacterV9::createFromV8>("5.1.1.2", 9),
    makeVersion<MaravoCharacterV9, MaravoCharacterV10, &MaravoCharacterV10::createFromV9>("6.2", 10),
    makeVersion<MaravoCharacterV10, MaravoCharacterV11, &MaravoCharacterV11::createFromV10>("6.2.1", 11),
    makeVersion<MaravoCharacterV11, MaravoCharacterV12, &MaravoCharacterV12::createFromV11>("6.3.2", 12),
    makeVersion<MaravoCharacterV12, MaravoCharacterV13, &MaravoCharacterV13::createFromV12>("6.4.3", 13),
    makeVersion<MaravoCharacterV13, MaravoCharacterV14, &MaravoCharacterV14::createFromV13>("7.1.1", 14),
    makeVersion<MaravoCharacterV14, MaravoCharacterV15, &MaravoCharacterV15::createFromV14>("7.3.3", 15),
    makeVersion<MaravoCharacterV15, MaravoCharacterV16, &MaravoCharacterV16::createFromV15>("8.0.0", 16),
    makeVersion<MaravoCharacterV16, MaravoCharacterV17, &MaravoCharacterV17::createFromV16>("8.0.1", 17),
    makeVersion<MaravoCharacterV17, MaravoCharacterV18, &MaravoCharacterV18::createFromV17>("8.0.4", 18),
    makeVersion<MaravoCharacterV18, MaravoCharacterV19, &MaravoCharacterV19::createFromV18>("8.1.3", 19),
    makeVersion<MaravoCharacterV19, MaravoCharacterV20, &MaravoCharacterV20::createFromV19>("8.2.2", 20),
    makeVersion<MaravoCharacterV20, MaravoCharacterV21, &MaravoCharacterV21::createFromV20>("8.2.3", 21),
    makeVersion<MaravoCharacterV21, MaravoCharacterV22, &MaravoCharacterV22::createFromV21>("9.0.0", 22),
    makeVersion<MaravoCharacterV22, MaravoCharacterV23, &MaravoCharacterV23::createFromV22>("9.0.0", 23),
    makeVersion<MaravoCharacterV23, MaravoCharacterV24, &MaravoCharacterV24::createFromV23>("9.0.0", 24),
    { "9.1", &create<MaravoCharacterV24>, nullptr, 24 },
    // clang-format on
};
static_assert(sizeof(versions) / sizeof(versions[0]) == MRV_MVC_VERSION + 1, "one entry per version");

const CharacterVersion* findVersion(int version)
{
    return version >= 0 && version <= MRV_MVC_VERSION ? &versions[version] : nullptr;
}

} // namespace

MaravoCharacterInterface* createCharacter(int version)
{
    const CharacterVersion* found = findVersion(version);
    return found != nullptr ? found->create() : nullptr;
}

void convertFrom(MaravoCharacterInterface* oldCharacter, MaravoCharacterInterface*& newCharacter, int version)
{
    MaravoCharacterInterface* newChar = oldCharacter;
    for (const CharacterVersion* rung = findVersion(version); rung != nullptr && rung->climb != nullptr;
         rung = findVersion(version))
    {
        newChar = rung->climb(newChar);
        version = rung->next;
    }
    MRV_ASSERT(version == MRV_MVC_VERSION);
    MRV_ASSERT(dynamic_cast<MaravoCharacter*>(newChar) != NULL);
    newCharacter = newChar;
}

MrvString MaravoCharacterV24::getCharacterVersionName(int version)
{
    const CharacterVersion* found = findVersion(version);
    return found != nullptr ? found->productVersion : "";
}

} // namespace mrv
