// tests/support/mrvTestGraph.h
// Persistent classes of the tests: a graph with everything that attributes can be.
#pragma once

#include "mrvCore/math/types/mrvVector3.h"
#include "mrvCore/system/containers/mrvArray.h"
#include "mrvCore/system/containers/mrvMap.h"
#include "mrvCore/system/containers/mrvPODArray.h"
#include "mrvCore/system/containers/mrvSet.h"
#include "mrvCore/system/containers/mrvString.h"
#include "mrvCore/system/inspection/mrvPersistentClass.h"
#include "tests/support/mrvCoreFixture.h"

#include <utility>

namespace mrv::test {

/// Held by value, also as element of arrays and maps, and pointed at there.
class Part
{
public:
    MRV_PERSISTENT_CLASS(Part)

    Part() { ++s_alive; }
    Part(const char* label, int count) : _label(label), _count(count) { ++s_alive; }
    Part(const Part& other) : _label(other._label), _count(other._count) { ++s_alive; }
    Part& operator=(const Part&) = default;
    ~Part() { --s_alive; }

    MrvString _label;
    int _count = 0;

    static int s_alive;
};

/// Base of what pointers point at; tells its class at run time.
class Node
{
public:
    MRV_PERSISTENT_CLASS_VIRTUAL(Node)

    Node() { s_alive.insert(this); }
    explicit Node(const char* name) : _name(name) { s_alive.insert(this); }
    Node(const Node&) = delete;
    Node& operator=(const Node&) = delete;
    virtual ~Node() { s_alive.erase(this); }

    const Vector3& getPosition() const { return _position; }
    void setPosition(const Vector3& position)
    {
        _position = position;
        ++_positionSetterCalls;
    }

    MrvString _name;
    Node* _father = nullptr;
    Array<Node*> _children;
    int _positionSetterCalls = 0;

    static MrvSet<Node*> s_alive;

private:
    Vector3 _position;
};

/// Adds attributes to a base, one with a blank in its name and one that hides a name of the base.
class LitNode : public Node
{
public:
    MRV_PERSISTENT_CLASS_VIRTUAL(LitNode)

    PODArray<float> _colour;
    bool _isLit = false;
};

/// An object without attributes.
class Nothing
{
public:
    MRV_PERSISTENT_CLASS(Nothing)
};

/// The root: members of every kind and accessors of every kind.
class Scene
{
public:
    MRV_PERSISTENT_CLASS(Scene)

    int getYear() const { return _year; }
    void setYear(int year)
    {
        _year = year;
        ++_yearSetterCalls;
    }
    Node* getEntry() const { return _entry; }
    void setEntry(Node* entry)
    {
        _entry = entry;
        ++_entrySetterCalls;
    }
    const Part& getStage() const { return _stage; }
    void setStage(const Part& stage)
    {
        _stage = stage;
        ++_stageSetterCalls;
    }
    const Array<Node*>& getGuests() const { return _guests; }
    void setGuests(const Array<Node*>& guests) { _guests = guests; }
    int getLimit(unsigned int index) const { return _limits[index]; }
    void setLimit(unsigned int index, int limit) { _limits[index] = limit; }
    const MrvString& getLine(unsigned int index) const { return _lines[index]; }
    void setLine(unsigned int index, const MrvString& line) { _lines[index] = line; }

    Part _first; // at the address of its owner
    Node* _root = nullptr;
    const Part* _favourite = nullptr;
    Array<Part> _parts;
    PODArray<int> _numbers;
    Array<MrvString> _texts;
    Array<PODArray<int>> _table;
    MrvMap<MrvString, int> _ages;
    MrvMap<int, Part> _partsByNumber;
    std::pair<int, MrvString> _pair;
    Array<std::pair<MrvString, Part*>> _pairs;
    double _ratio = 0.0;
    uint64_t _serial = 0;
    short _depth = 0;
    unsigned char _flags = 0;
    int _yearSetterCalls = 0;
    int _entrySetterCalls = 0;
    int _stageSetterCalls = 0;

private:
    int _year = 0;
    Node* _entry = nullptr;
    Part _stage;
    Array<Node*> _guests;
    int _limits[2] = {};
    MrvString _lines[2];
};

/// Registers the classes above as a host registers its own: behind the start, and back before the stop.
void registerTestGraph();
void removeTestGraph();

/// Deletes every node that there is, whether or not a failed reading left it within reach.
void deleteNodes();

/// A scene in which every attribute differs from its default, with a cycle of nodes, pointers to array
/// elements and two pointers to one node.
void fillScene(Scene& scene);

/// Fails the running test where two scenes differ, pointers being compared by what they point at.
void expectEqualScenes(const Scene& actual, const Scene& expected);

/// A test with the library started and the classes registered.
class GraphTest : public CoreTest
{
protected:
    GraphTest() { registerTestGraph(); }
    ~GraphTest() override { removeTestGraph(); }
};

} // namespace mrv::test
