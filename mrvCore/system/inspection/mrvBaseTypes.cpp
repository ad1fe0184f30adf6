// mrvCore/system/inspection/mrvBaseTypes.cpp
// The records of the base types: what RTTI::createRTTIs registers and RTTI::destroyRTTIs removes.
#include "mrvCore/system/containers/mrvMap.h"
#include "mrvCore/system/inspection/mrvRTTI.h"
#include "mrvCore/system/inspection/mrvRTTIAccessor.h"

namespace mrv {

template <typename T>
RTTI* BaseTypeAccessor<T>::_rtti = nullptr;

template <typename T>
void BaseTypeAccessor<T>::createClassRTTI()
{
    _rtti->incrementCounter();
}

template <typename T>
void BaseTypeAccessor<T>::destroyClassRTTI()
{
    _rtti->decrementCounter();
}

template <typename T>
RTTI* BaseTypeAccessor<T>::unsetRTTI()
{
    RTTI* rtti = _rtti;
    _rtti = nullptr;
    return rtti;
}

namespace {

struct BaseType
{
    const char* name;
    Uuid (*makeTypeID)();
    void (*setRTTI)(RTTI*);
    RTTI* (*unsetRTTI)();
};

template <typename T>
constexpr BaseType makeBaseType(const char* name, Uuid (*makeTypeID)())
{
    return { name, makeTypeID, &RTTIAccessor<T>::setRTTI, &RTTIAccessor<T>::unsetRTTI };
}

// The types made of floats derive their identity from that of float, which stands before them.
Uuid ofFloats(const char* seed)
{
    return Uuid(seed) + RTTIAccessor<float>::getClassRTTI().getTypeID();
}

Uuid vectorSeed()
{
    return ofFloats("8af3bb0a-57ce-44d5-b915-2ef523362c3c");
}

// Order and identities are permanent.
const BaseType baseTypes[] = {
    makeBaseType<bool>("bool", [] { return Uuid("fac19457-d459-4f19-8218-65943a7de958"); }),
    makeBaseType<short>("short", [] { return Uuid("0aff7554-0ba1-4a93-8782-9a33e7fb6bc7"); }),
    makeBaseType<unsigned short>("unsigned short",
                                 [] { return Uuid("80e1ebd3-b3f3-47e9-bd40-5424c6c1c97a"); }),
    makeBaseType<int>("int", [] { return Uuid("e7aba3a3-34e5-414f-95ad-f1b0a3163240"); }),
    makeBaseType<unsigned int>("unsigned int", [] { return Uuid("e5f6d962-0891-4299-8212-38e900f240bf"); }),
    makeBaseType<long>("long", [] { return Uuid("85d1c39d-0d78-4dd0-9a08-2e1a2c1dbdca"); }),
    makeBaseType<uint64_t>("uint64_t", [] { return Uuid("74bbcf67-6888-4e15-9898-a36971adcf04"); }),
    makeBaseType<float>("float", [] { return Uuid("19da58d2-b2dc-4199-8985-029948867708"); }),
    makeBaseType<double>("double", [] { return Uuid("7c188429-e7ac-4322-a573-54d11874f639"); }),
    makeBaseType<MrvString>("string", [] { return Uuid("1ae93ddd-1a38-47f1-9aff-af713284b685"); }),
    makeBaseType<char>("char", [] { return Uuid("17c814cf-cc7b-40d4-8a0b-1185f9b6cf2e"); }),
    makeBaseType<unsigned char>("unsigned char", [] { return Uuid("82fe4b50-c0f1-4825-baac-f8f929f0f166"); }),
    makeBaseType<Uuid>("mrv::Uuid", [] { return Uuid("e94c88f5-c2a3-4e70-9526-61184b9dd4b1"); }),
    makeBaseType<Vector2>("mrv::Vector2", [] { return vectorSeed() + 2u; }),
    makeBaseType<Vector3>("mrv::Vector3", [] { return vectorSeed() + 3u; }),
    makeBaseType<Vector4>("mrv::Vector4", [] { return vectorSeed() + 4u; }),
    makeBaseType<Quaternion>("mrv::Quaternion",
                             [] { return ofFloats("3e67050a-c502-4170-80b9-c654c11d1695"); }),
    makeBaseType<RotationMatrix>("mrv::RotationMatrix",
                                 [] { return ofFloats("f7dc7e88-49cf-400c-86f5-77da0923f7e6"); }),
};

} // namespace

void RTTI::createRTTIs()
{
    for (const BaseType& type : baseTypes)
        type.setRTTI(create(type.makeTypeID(), type.name, nullptr));
}

void RTTI::destroyRTTIs()
{
    for (size_t i = sizeof(baseTypes) / sizeof(baseTypes[0]); i-- > 0;)
        delete baseTypes[i].unsetRTTI();
    while (!_typeIDToRTTI->empty())
        delete _typeIDToRTTI->begin().getValue();
}

#define MRV_INTERNAL_INSTANTIATE_BASE_TYPE(T) template class BaseTypeAccessor<T>;
MRV_FOR_EACH_BASE_TYPE(MRV_INTERNAL_INSTANTIATE_BASE_TYPE)
#undef MRV_INTERNAL_INSTANTIATE_BASE_TYPE

} // namespace mrv
