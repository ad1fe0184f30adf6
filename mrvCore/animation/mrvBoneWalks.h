// mrvCore/animation/mrvBoneWalks.h
// Ways through a tree of bones that end on any links and need no stack. Internal.
#pragma once

#include "mrvCore/animation/mrvHierarchicalBone.h"

namespace mrv::internal {

/// True for a child that names this father. A walk down such links from one bone meets no other bone twice,
/// since each has one father; only the start can come again.
inline bool isLinked(const HierarchicalBoneV1* father, const HierarchicalBoneV1* child)
{
    return father->isParentOf(child);
}

/// Climbs from father to father. On a ring of fathers it ends after some rounds (Brent, "An improved Monte
/// Carlo factorization algorithm", 1980).
class FatherClimb
{
public:
    explicit FatherClimb(const HierarchicalBoneV1* bone) : _bone(bone), _mark(bone) {}

    /// Null at the end.
    const HierarchicalBoneV1* get() const { return _bone; }
    void climb()
    {
        _bone = _bone->getFather();
        if (_bone == _mark)
            _bone = nullptr;
        else if (++_steps == _stepsToMark)
        {
            _mark = _bone;
            _stepsToMark *= 2;
            _steps = 0;
        }
    }

private:
    const HierarchicalBoneV1* _bone;
    const HierarchicalBoneV1* _mark;
    size_t _steps = 0;
    size_t _stepsToMark = 1;
};

/// A branch level by level, children in their order.
struct BoneLevels
{
    explicit BoneLevels(const HierarchicalBoneV1& top);

    size_t getCount() const { return starts.size() - 1; }

    PODArray<const HierarchicalBoneV1*> bones;
    PODArray<int> fathers;   ///< positions in `bones`, -1 for the top
    PODArray<size_t> starts; ///< of the levels in `bones`; the end of the last one too

private:
    void addChildren(size_t position);
};

/// Calls `visit(bone, depthBelowTop)` for a branch from a stack: children are pushed in their order and the
/// last one is taken first. Whoever keeps the first or the last of equal bones relies on that order.
template <class Visit>
void walkBranch(const HierarchicalBoneV1& top, Visit visit)
{
    struct Waiting
    {
        const HierarchicalBoneV1* bone;
        int depth;
    };
    PODArray<Waiting> stack;
    stack.push_back({ &top, 0 });
    while (stack.any())
    {
        const Waiting next = stack.back();
        stack.pop_back();
        visit(*next.bone, next.depth);
        for (const HierarchicalBoneV1* child : next.bone->getChildren())
            if (isLinked(next.bone, child) && child != &top)
                stack.push_back({ child, next.depth + 1 });
    }
}

} // namespace mrv::internal
