// mrvCore/animation/_compatibility/mrvMaravoCharacterV4.cpp
#include "mrvCore/animation/_compatibility/mrvMaravoCharacterV4.h"

#include "mrvCore/animation/_compatibility/mrvGenericSpecificConverterMappingV4.h"
#include "mrvCore/animation/_compatibility/mrvGenericSpecificConverterMappingV5.h"
#include "mrvCore/animation/_compatibility/mrvMaravoCharacterV0.h"
#include "mrvCore/animation/_compatibility/mrvMaravoCharacterV1.h"
#include "mrvCore/animation/_compatibility/mrvMaravoCharacterV2.h"
#include "mrvCore/animation/_compatibility/mrvMaravoCharacterV3.h"
#include "mrvCore/assetManagement/_compatibility/mrvAssetManagerV0.h"
#include "mrvCore/assetManagement/_compatibility/mrvAssetManagerV1.h"
#include "mrvCore/assetManagement/_compatibility/mrvAssetManagerV2.h"
#include "mrvCore/assetManagement/_compatibility/mrvAssetManagerV3.h"
#include "mrvCore/system/serialization/mrvPersistentAttributes.h"

#include <utility>

namespace mrv {

MRV_DEFINE_PERSISTENT_CLASS(MaravoCharacterV4, "mrv::MaravoCharacterV4",
                            "ae8b6c59-cf19-4208-921a-a6faa3e5a7ca")

void MaravoCharacterV4::addAttributes()
{
    using V4 = MaravoCharacterV4;
    addBaseClass<MaravoCharacterInterface>();
    addAttribute<AssetManagerV3*>("assetManager", &V4::_assetManager);
    addAttribute<GenericSpecificConverterMappingV5*>("converterMapping", &V4::_converterMapping);
    addAttribute<CharacterUserDataV0*>("characterUserData", &V4::_characterUserData);
}

MaravoCharacterV4::MaravoCharacterV4() = default;

MaravoCharacterV4::~MaravoCharacterV4() = default;

namespace {

/// The next version of an object; null, where a damaged file has nothing, counts as one of defaults.
template <class New, class Old>
New* makeNext(Old* old, void (New::*createFrom)(Old&))
{
    Old nothing;
    New* const next = new New();
    (next->*createFrom)(old != nullptr ? *old : nothing);
    return next;
}

template <class T>
T* takeOver(T*& old)
{
    return std::exchange(old, nullptr);
}

} // namespace

void MaravoCharacterV4::createFromV0(MaravoCharacterV0& old)
{
    _assetManager = makeNext(old._assetManager, &AssetManagerV3::createFromV0);
    _converterMapping = makeNext<GenericSpecificConverterMappingV5>(
        old._converterMapping, &GenericSpecificConverterMappingV5::createFromV4);
    _characterUserData = takeOver(old._characterUserData);
}

void MaravoCharacterV4::createFromV1(MaravoCharacterV1& old)
{
    _assetManager = makeNext(old._assetManager, &AssetManagerV3::createFromV0);
    _converterMapping = takeOver(old._converterMapping);
    _characterUserData = takeOver(old._characterUserData);
}

void MaravoCharacterV4::createFromV2(MaravoCharacterV2& old)
{
    _assetManager = makeNext(old._assetManager, &AssetManagerV3::createFromV1);
    _converterMapping = takeOver(old._converterMapping);
    _characterUserData = takeOver(old._characterUserData);
}

void MaravoCharacterV4::createFromV3(MaravoCharacterV3& old)
{
    _assetManager = makeNext(old._assetManager, &AssetManagerV3::createFromV2);
    _converterMapping = takeOver(old._converterMapping);
    _characterUserData = takeOver(old._characterUserData);
}

} // namespace mrv
