// tests/support/mrvTestGraph.cpp
#include "tests/support/mrvTestGraph.h"

#include "mrvCore/system/serialization/mrvPersistentAttributes.h"

namespace mrv::test {

int Part::s_alive = 0;
MrvSet<Node*> Node::s_alive;

MRV_DEFINE_PERSISTENT_CLASS(Part, "test::Part", "a3f1c2d4-0b5e-4a6f-8c7d-9e0f1a2b3c01")
MRV_DEFINE_PERSISTENT_CLASS(Node, "test::Node", "a3f1c2d4-0b5e-4a6f-8c7d-9e0f1a2b3c02")
MRV_DEFINE_PERSISTENT_CLASS(LitNode, "test::LitNode", "a3f1c2d4-0b5e-4a6f-8c7d-9e0f1a2b3c03")
MRV_DEFINE_PERSISTENT_CLASS(Nothing, "test::Nothing", "a3f1c2d4-0b5e-4a6f-8c7d-9e0f1a2b3c04")
MRV_DEFINE_PERSISTENT_CLASS(Scene, "test::Scene", "a3f1c2d4-0b5e-4a6f-8c7d-9e0f1a2b3c05")

void Part::addAttributes()
{
    addAttribute<MrvString>("label", &Part::_label);
    addAttribute<int>("count", &Part::_count);
}

void Node::addAttributes()
{
    addAttribute<MrvString>("name", &Node::_name);
    addAccessorsAttribute<const Vector3&>("position", &Node::getPosition, &Node::setPosition);
    addAttribute<Node*>("father", &Node::_father);
    addAttribute<Array<Node*>>("children", &Node::_children);
}

void LitNode::addAttributes()
{
    addBaseClass<Node>();
    addAttribute<PODArray<float>>("colour", &LitNode::_colour);
    addAttribute<bool>("is lit", &LitNode::_isLit);
}

void Nothing::addAttributes() {}

void Scene::addAttributes()
{
    addAttribute<Part>("first", &Scene::_first);
    addAttribute<Node*>("root", &Scene::_root);
    addAttribute<const Part*>("favourite", &Scene::_favourite);
    addAttribute<Array<Part>>("parts", &Scene::_parts);
    addAttribute<PODArray<int>>("numbers", &Scene::_numbers);
    addAttribute<Array<MrvString>>("texts", &Scene::_texts);
    addAttribute<Array<PODArray<int>>>("table", &Scene::_table);
    addAttribute<MrvMap<MrvString, int>>("ages", &Scene::_ages);
    addAttribute<MrvMap<int, Part>>("parts by number", &Scene::_partsByNumber);
    addAttribute<std::pair<int, MrvString>>("pair", &Scene::_pair);
    addAttribute<Array<std::pair<MrvString, Part*>>>("pairs", &Scene::_pairs);
    addAttribute<double>("ratio", &Scene::_ratio);
    addAttribute<uint64_t>("serial", &Scene::_serial);
    addAttribute<short>("depth", &Scene::_depth);
    addAttribute<unsigned char>("flags", &Scene::_flags);
    addAccessorsAttribute<int>("year", &Scene::getYear, &Scene::setYear);
    addAccessorsAttribute<Node*>("entry", &Scene::getEntry, &Scene::setEntry);
    addAccessorsAttribute<const Part&>("stage", &Scene::getStage, &Scene::setStage);
    addAccessorsAttribute<const Array<Node*>&>("guests", &Scene::getGuests, &Scene::setGuests);
    addContainerAccessorsAttribute<int>("low limit", &Scene::getLimit, &Scene::setLimit, 0);
    addContainerAccessorsAttribute<int>("high limit", &Scene::getLimit, &Scene::setLimit, 1);
    addContainerAccessorsAttribute<const MrvString&>("line 1", &Scene::getLine, &Scene::setLine, 0);
    addContainerAccessorsAttribute<const MrvString&>("line 2", &Scene::getLine, &Scene::setLine, 1);
}

void registerTestGraph()
{
    Part::createClassRTTI(true);
    Node::createClassRTTI(true);
    LitNode::createClassRTTI(true);
    Nothing::createClassRTTI(true);
    Scene::createClassRTTI(true);
}

void removeTestGraph()
{
    Scene::destroyClassRTTI(true);
    Nothing::destroyClassRTTI(true);
    LitNode::destroyClassRTTI(true);
    Node::destroyClassRTTI(true);
    Part::destroyClassRTTI(true);
}

namespace {

Node* addChild(Node* father, Node* child)
{
    child->_father = father;
    father->_children.push_back(child);
    return child;
}

void expectEqualParts(const Part& actual, const Part& expected)
{
    EXPECT_STREQ(actual._label.c_str(), expected._label.c_str());
    EXPECT_EQ(actual._count, expected._count);
}

void expectEqualNodes(const Node* actual, const Node* expected)
{
    ASSERT_EQ(actual == nullptr, expected == nullptr);
    if (actual == nullptr)
        return;
    ASSERT_EQ(&actual->getRTTI(), &expected->getRTTI());
    EXPECT_STREQ(actual->_name.c_str(), expected->_name.c_str());
    EXPECT_TRUE(actual->getPosition() == expected->getPosition()) << actual->_name.c_str();
    EXPECT_EQ(actual->_positionSetterCalls, 1) << "only the second pass may set";
    if (&actual->getRTTI() == &LitNode::getClassRTTI())
    {
        EXPECT_TRUE(static_cast<const LitNode*>(actual)->_colour ==
                    static_cast<const LitNode*>(expected)->_colour);
        EXPECT_EQ(static_cast<const LitNode*>(actual)->_isLit, static_cast<const LitNode*>(expected)->_isLit);
    }
    ASSERT_EQ(actual->_children.size(), expected->_children.size());
    for (size_t i = 0; i < actual->_children.size(); ++i)
    {
        ASSERT_NE(actual->_children[i], nullptr);
        EXPECT_EQ(actual->_children[i]->_father, actual);
        expectEqualNodes(actual->_children[i], expected->_children[i]);
    }
}

} // namespace

void deleteNodes()
{
    while (!Node::s_alive.empty())
        delete *Node::s_alive.begin();
}

void fillScene(Scene& scene)
{
    scene._first = Part("first", -1);
    Node* root = new Node("root");
    root->setPosition(Vector3(1.0f, -2.5f, 0.1f));
    LitNode* lamp = new LitNode();
    lamp->_name = "lamp \"&<>'";
    lamp->_colour.assign(3, 0.5f);
    lamp->_isLit = true;
    lamp->setPosition(Vector3(3.0f, 4.0f, 5.0f));
    addChild(root, lamp);
    Node* shade = addChild(lamp, new Node("shade"));
    addChild(root, new Node("floor"));
    scene._root = root;
    for (int i = 0; i < 3; ++i)
        scene._parts.push_back(Part("part", i));
    scene._favourite = &scene._parts[1];
    for (int number : { 3, 1, -2 })
        scene._numbers.push_back(number);
    scene._texts.push_back("");
    scene._texts.push_back("two words");
    scene._table.resize(2);
    scene._table[1] = scene._numbers;
    scene._ages["old"] = 90;
    scene._ages["young"] = 9;
    scene._partsByNumber[7] = Part("seven", 7);
    scene._partsByNumber[-7] = Part("minus seven", -7);
    scene._pair = std::make_pair(12, MrvString("twelve"));
    scene._pairs.push_back(std::make_pair(MrvString("mapped"), &scene._partsByNumber[7]));
    scene._pairs.push_back(std::make_pair(MrvString("null"), static_cast<Part*>(nullptr)));
    scene._ratio = 0.1;
    scene._serial = 0xFEDCBA9876543210u;
    scene._depth = -3;
    scene._flags = 'x';
    scene.setYear(2026);
    scene.setEntry(lamp);
    scene.setStage(Part("stage", 1));
    Array<Node*> guests;
    guests.push_back(shade);
    guests.push_back(new Node("outsider"));
    scene.setGuests(guests);
    scene.setLimit(0, -10);
    scene.setLimit(1, 10);
    scene.setLine(0, "to be");
    scene.setLine(1, "or not");
}

void expectEqualScenes(const Scene& actual, const Scene& expected)
{
    expectEqualParts(actual._first, expected._first);
    expectEqualNodes(actual._root, expected._root);
    ASSERT_EQ(actual._parts.size(), expected._parts.size());
    for (size_t i = 0; i < actual._parts.size(); ++i)
        expectEqualParts(actual._parts[i], expected._parts[i]);
    EXPECT_EQ(actual._favourite - actual._parts.begin(), expected._favourite - expected._parts.begin());
    EXPECT_TRUE(actual._numbers == expected._numbers);
    EXPECT_TRUE(actual._texts == expected._texts);
    EXPECT_TRUE(actual._table == expected._table);
    EXPECT_TRUE(actual._ages == expected._ages);
    ASSERT_EQ(actual._partsByNumber.size(), expected._partsByNumber.size());
    auto wanted = expected._partsByNumber.begin();
    for (auto entry = actual._partsByNumber.begin(); entry != actual._partsByNumber.end(); ++entry, ++wanted)
    {
        EXPECT_EQ(entry.getKey(), wanted.getKey());
        expectEqualParts(entry.getValue(), wanted.getValue());
    }
    EXPECT_TRUE(actual._pair == expected._pair);
    ASSERT_EQ(actual._pairs.size(), 2u);
    EXPECT_STREQ(actual._pairs[0].first.c_str(), "mapped");
    EXPECT_EQ(actual._pairs[0].second, &actual._partsByNumber.find(7).getValue());
    EXPECT_EQ(actual._pairs[1].second, nullptr);
    EXPECT_EQ(actual._ratio, expected._ratio);
    EXPECT_EQ(actual._serial, expected._serial);
    EXPECT_EQ(actual._depth, expected._depth);
    EXPECT_EQ(actual._flags, expected._flags);
    EXPECT_EQ(actual.getYear(), expected.getYear());
    EXPECT_EQ(actual.getEntry(), actual._root->_children[0]);
    expectEqualParts(actual.getStage(), expected.getStage());
    ASSERT_EQ(actual.getGuests().size(), 2u);
    EXPECT_EQ(actual.getGuests()[0], actual.getEntry()->_children[0]);
    expectEqualNodes(actual.getGuests()[1], expected.getGuests()[1]);
    for (unsigned int i = 0; i < 2; ++i)
    {
        EXPECT_EQ(actual.getLimit(i), expected.getLimit(i));
        EXPECT_TRUE(actual.getLine(i) == expected.getLine(i));
    }
    EXPECT_EQ(actual._yearSetterCalls, 1);
    EXPECT_EQ(actual._entrySetterCalls, 1);
    EXPECT_EQ(actual._stageSetterCalls, 1);
}

} // namespace mrv::test
