// tests/system/serialization/mrvBinaryStreamTest.cpp
#include "mrvCore/system/serialization/mrvBinaryStream.h"

#include "tests/support/mrvTestGraph.h"

#include <csignal>
#include <sstream>
#include <string>
#include <vector>

namespace mrv::test {
namespace {

std::string bytesOf(BinaryStream& stream)
{
    return stream.getStream().str();
}

template <typename T>
std::string packed(const T& object)
{
    BinaryStream stream;
    stream.pack(object);
    return bytesOf(stream);
}

template <typename T>
bool unpacked(const std::string& bytes, T& object)
{
    BinaryStream stream;
    stream.importFrom(reinterpret_cast<const uint8_t*>(bytes.data()), bytes.size());
    stream.unpack(object);
    return !stream.getStream().fail();
}

/// Bytes of a text of hexadecimal digits, blanks aside.
std::string fromHex(const std::string& digits)
{
    std::string bytes;
    std::istringstream stream(digits);
    for (std::string pair; stream >> pair;)
        for (size_t i = 0; i < pair.size(); i += 2)
            bytes += static_cast<char>(std::stoi(pair.substr(i, 2), nullptr, 16));
    return bytes;
}

class BinaryStreamTest : public GraphTest
{};

TEST_F(BinaryStreamTest, aGraphComesBackEqualWithItsCyclesAndSharedObjects)
{
    const int aliveBefore = Part::s_alive;
    {
        Scene scene, loaded;
        fillScene(scene);
        const std::string bytes = packed(scene);
        ASSERT_TRUE(unpacked(bytes, loaded));
        expectEqualScenes(loaded, scene);
        EXPECT_EQ(packed(loaded), bytes);
        deleteNodes();
    }
    EXPECT_EQ(Part::s_alive, aliveBefore) << "a temporary was not deleted";
}

TEST_F(BinaryStreamTest, plainValuesHaveTheirDocumentedBytes)
{
    BinaryStream stream;
    stream.write(3);
    stream.write(MrvString("abc"));
    EXPECT_EQ(stream.getLength(), 0u) << "the first pass writes nothing";
    stream.write("raw", 3);
    stream.setFirstPass(false);
    stream.write(true);
    stream.write('c');
    stream.write(static_cast<short>(-2));
    stream.write(static_cast<unsigned short>(2));
    stream.write(-3);
    stream.write(3u);
    stream.write(-4L);
    stream.write(uint64_t(4));
    stream.write(1.0f);
    stream.write(-1.0);
    stream.write(MrvString("abc"));
    stream.write(MrvString());
    stream.write(Uuid("05c7b16a-e5cf-45eb-abf1-2c5b1a9ab1d3"));
    stream.write(Vector3(1.0f, 0.0f, -1.0f));
    EXPECT_EQ(bytesOf(stream), fromHex("726177 01 63 feff 0200 fdffffff 03000000 fcffffffffffffff "
                                       "0400000000000000 0000803f 000000000000f0bf 03000000616263 00000000 "
                                       "6ab1c705cfe5eb45abf12c5b1a9ab1d3 0000803f 00000000 000080bf"));
}

TEST_F(BinaryStreamTest, objectsCarryIdAndAttributeCount)
{
    EXPECT_EQ(packed(Nothing()), fromHex("01000000 00000000"));
    EXPECT_EQ(packed(Part("ab", 5)), fromHex("01000000 02000000 02000000 6162 05000000"));
}

TEST_F(BinaryStreamTest, theFirstPointerCarriesTheBodyAndTheOthersTheId)
{
    Node father("f");
    LitNode child;
    child._name = "c";
    child._father = &father;
    father._children.push_back(&child);
    father._children.push_back(&child);
    // The root is held by value, so that its child's pointer to it has no body.
    const std::string nodeID = "d4c2f1a35e0b6f4a8c7d9e0f1a2b3c02";
    const std::string litNodeID = "d4c2f1a35e0b6f4a8c7d9e0f1a2b3c03";
    EXPECT_EQ(packed(father),
              fromHex("01000000 04000000 01000000 66 000000000000000000000000 00000000 02000000 "
                      "02000000 " +
                      litNodeID + " 01 02000000 06000000 01000000 63 000000000000000000000000 01000000 " +
                      nodeID + " 00 00000000 00000000 00 02000000 " + litNodeID + " 00"));
}

TEST_F(BinaryStreamTest, pointersToElementsOfAnArrayThatComesLaterReachTheElements)
{
    Scene scene, loaded;
    scene._parts.push_back(Part("a", 1));
    scene._favourite = &scene._parts[0]; // stands before the array in the stream
    ASSERT_TRUE(unpacked(packed(scene), loaded));
    EXPECT_EQ(loaded._favourite, &loaded._parts[0]);
}

TEST_F(BinaryStreamTest, pointersToPlainValuesKeepIdentityAndNull)
{
    int value = 7;
    const int* first = &value;
    const int* second = &value;
    const int* null = nullptr;
    BinaryStream stream;
    for (const bool firstPass : { true, false })
    {
        stream.setFirstPass(firstPass);
        stream.write(first);
        stream.write(second);
        stream.write(null);
    }
    EXPECT_EQ(bytesOf(stream), fromHex("01000000 01 07000000 01000000 00 00000000"));

    BinaryStream reader;
    const std::string bytes = bytesOf(stream);
    reader.importFrom(reinterpret_cast<const uint8_t*>(bytes.data()), bytes.size());
    int* read[3] = { nullptr, nullptr, &value };
    for (const bool firstPass : { true, false })
    {
        reader.setFirstPass(firstPass);
        reader.getStream().seekg(0);
        for (int*& pointer : read)
            reader.read(pointer);
    }
    ASSERT_NE(read[0], nullptr);
    EXPECT_EQ(*read[0], 7);
    EXPECT_EQ(read[1], read[0]);
    EXPECT_EQ(read[2], nullptr);
    delete read[0];
}

TEST_F(BinaryStreamTest, membersHoldTheirValueAfterTheFirstPassAndAccessorsAfterTheSecond)
{
    Scene scene, loaded;
    scene._depth = 5;
    scene.setYear(1999);
    const std::string bytes = packed(scene);
    BinaryStream stream;
    stream.importFrom(reinterpret_cast<const uint8_t*>(bytes.data()), bytes.size());
    stream.read(loaded);
    EXPECT_EQ(loaded._depth, 5);
    EXPECT_EQ(loaded.getYear(), 0);
    EXPECT_EQ(loaded._stageSetterCalls, 0);
    stream.setFirstPass(false);
    stream.getStream().seekg(0);
    stream.read(loaded);
    stream.setFirstPass(true);
    EXPECT_EQ(loaded.getYear(), 1999);
    EXPECT_EQ(loaded._stageSetterCalls, 1);
    EXPECT_EQ(stream.getPosition(), bytes.size());
}

TEST_F(BinaryStreamTest, whatIsReadHasNoSpareRoom)
{
    Scene scene, loaded;
    scene._parts.resize(3);
    scene._numbers.push_back(1);
    scene._texts.resize(1);
    scene._texts[0] = "ab";
    loaded._numbers.reserve(20);
    ASSERT_TRUE(unpacked(packed(scene), loaded));
    EXPECT_EQ(loaded._parts.capacity(), 3u);
    EXPECT_EQ(loaded._texts.capacity(), 1u);
    EXPECT_EQ(loaded._texts[0].capacity(), 3u);
    EXPECT_EQ(loaded._numbers.capacity(), 20u) << "room that is there stays";
}

TEST_F(BinaryStreamTest, anObjectOfOtherAttributesIsFatal)
{
    Part part;
    EXPECT_EXIT(unpacked(fromHex("01000000 03000000 00000000 00000000"), part),
                testing::KilledBySignal(SIGTRAP),
                "the Inspectable object of type : test::Part passed as an argument to BinaryStream::read has "
                "a different attributes count, 2, than the one being read from the stream, 3");
    EXPECT_EXIT(BinaryStream().importFrom("/no/such/file"), testing::KilledBySignal(SIGTRAP),
                "FileDir::exist");
    EXPECT_EXIT(BinaryStream().importFrom(nullptr, 0), testing::KilledBySignal(SIGTRAP), "buffer != NULL");
}

struct DamagedCase
{
    const char* name;
    const char* bytes; ///< of a LitNode up to the place where it goes wrong
};

const DamagedCase damagedCases[] = {
    { "textLongerThanTheRest", "01000000 06000000 ffffffff 6162" },
    { "arrayLongerThanTheRest",
      "01000000 06000000 00000000 000000000000000000000000 00000000 ffffff7f 0000" },
    { "childOfAnUnknownClass", "01000000 06000000 00000000 000000000000000000000000 00000000 01000000 "
                               "02000000 00000000000000000000000000000001 01" },
    { "childOfAnotherClass", "01000000 06000000 00000000 000000000000000000000000 00000000 01000000 "
                             "02000000 d4c2f1a35e0b6f4a8c7d9e0f1a2b3c01 01" },
};

class DamagedBinary : public BinaryStreamTest, public testing::WithParamInterface<DamagedCase>
{};

TEST_P(DamagedBinary, leavesTheErrorStateAndNoWildPointer)
{
    LitNode node;
    EXPECT_FALSE(unpacked(fromHex(GetParam().bytes), node));
    for (const Node* child : node._children)
        EXPECT_EQ(child, nullptr);
}

INSTANTIATE_TEST_SUITE_P(Table, DamagedBinary, testing::ValuesIn(damagedCases),
                         [](const auto& row) { return std::string(row.param.name); });

TEST_F(BinaryStreamTest, twoEntriesOfOneKeyDoNotEmptyTheFirstOnesObjects)
{
    BinaryStream stream;
    const std::string entry = "01000000 01000000 02000000 02000000 00000000 00000000";
    const std::string bytes = fromHex(("02000000" + entry + entry).c_str());
    stream.importFrom(reinterpret_cast<const uint8_t*>(bytes.data()), bytes.size());
    MrvMap<int, Array<Part>> map;
    stream.read(map);
    EXPECT_TRUE(stream.getStream().fail());
    EXPECT_EQ(map[1].size(), 1u);
}

TEST_F(BinaryStreamTest, everyPrefixOfAGoodBufferIsTooShortAndHarmless)
{
    Scene scene;
    fillScene(scene);
    const std::string bytes = packed(scene);
    for (size_t length = 0; length < bytes.size(); ++length)
    {
        Scene loaded;
        EXPECT_FALSE(unpacked(bytes.substr(0, length), loaded)) << length;
        // The instance made for this pointer stays where the array's element never replaced it.
        if (loaded._favourite < loaded._parts.begin() || loaded._favourite >= loaded._parts.end())
            delete loaded._favourite;
    }
    deleteNodes();
}

TEST_F(BinaryStreamTest, aChainDeeperThanTheStackIsRefusedNotFollowed)
{
    std::vector<Node> chain(200000);
    for (size_t i = 0; i + 1 < chain.size(); ++i)
        chain[i]._children.push_back(&chain[i + 1]);
    BinaryStream stream;
    stream.pack(chain[0]);
    EXPECT_TRUE(stream.getStream().fail());
}

} // namespace
} // namespace mrv::test
