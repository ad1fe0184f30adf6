// mrvCore/assetManagement/_compatibility/mrvStepUp.h
// How the content of one version goes over to the next: arrays and maps of converted elements.
#pragma once

#include "mrvCore/system/containers/mrvArray.h"
#include "mrvCore/system/containers/mrvMap.h"

#include <type_traits>
#include <utility>

namespace mrv {

/// Makes `to.createFrom(old)`, which takes its argument by value, the step from Old to New in stepUp().
/// Both classes may be incomplete here. One line per step, in a list such as mrvAssetSteps.h.
#define MRV_STEP_UP(New, createFrom, Old) MRV_INTERNAL_STEP_UP(New, Old, to.createFrom(std::move(from)))

/// The same for a class whose step is a converting constructor.
#define MRV_STEP_UP_BY_CONSTRUCTOR(New, Old) MRV_INTERNAL_STEP_UP(New, Old, to = N(std::move(from)))

#define MRV_INTERNAL_STEP_UP(New, Old, step)                                                                 \
    class New;                                                                                               \
    class Old;                                                                                               \
    template <class N, class O>                                                                              \
    std::enable_if_t<std::is_same_v<N, New> && std::is_same_v<O, Old>> stepUp(N& to, O& from)                \
    {                                                                                                        \
        step;                                                                                                \
    }

// stepUp(to, from) replaces the content of `to` by that of `from`, whatever the two are: a value of the same
// type is taken over, an object of the version before goes through its step, and arrays and maps do so
// element by element. What is left in `from` may only be destroyed: read first what else is needed of it.

template <class T>
void stepUp(T& to, T& from)
{
    to = std::move(from);
}

template <class New, class Old>
std::enable_if_t<!std::is_same_v<New, Old>> stepUp(Array<New>& to, Array<Old>& from)
{
    to.clear();
    to.resize(from.size());
    for (size_t i = 0; i < from.size(); ++i)
        stepUp(to[i], from[i]);
}

namespace internal {

/// A map cannot be moved as a whole, its values can.
template <class NewMap, class OldMap>
void stepUpValues(NewMap& to, OldMap& from)
{
    to.clear();
    for (auto entry = from.begin(); entry != from.end(); ++entry)
        stepUp(to[entry.getKey()], entry.getValue());
}

} // namespace internal

template <class Key, class Value>
void stepUp(MrvMap<Key, Value>& to, MrvMap<Key, Value>& from)
{
    internal::stepUpValues(to, from);
}

template <class Key, class New, class Old>
std::enable_if_t<!std::is_same_v<New, Old>> stepUp(MrvMap<Key, New>& to, MrvMap<Key, Old>& from)
{
    internal::stepUpValues(to, from);
}

} // namespace mrv
