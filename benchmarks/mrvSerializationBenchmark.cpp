// benchmarks/mrvSerializationBenchmark.cpp
// Both object streams beside cereal, and the XML one beside bare RapidXML. Objects are bones and assets.
#include "benchmarks/mrvBenchmarkReport.h"
#include "benchmarks/mrvSerializationModel.h"

#include "mrvCore/mrvCore.h"
#include "mrvCore/system/serialization/mrvBinaryStream.h"
#include "mrvCore/system/serialization/mrvXMLStream.h"
#include "mrvCore/system/xml/mrvXMLDataFileParser.h"

#include <cereal/archives/binary.hpp>
#include <cereal/archives/xml.hpp>
#include <cereal/types/array.hpp>
#include <cereal/types/memory.hpp>
#include <cereal/types/string.hpp>
#include <cereal/types/vector.hpp>

#include <cstring>
#include <iterator>
#include <sstream>
#include <streambuf>

namespace rapidxml {
template <class T>
class xml_node;
namespace internal {
template <class OutIt, class Ch>
OutIt print_children(OutIt out, const xml_node<Ch>* node, int flags, int indent);
template <class OutIt, class Ch>
OutIt print_element_node(OutIt out, const xml_node<Ch>* node, int flags, int indent);
template <class OutIt, class Ch>
OutIt print_data_node(OutIt out, const xml_node<Ch>* node, int flags, int indent);
template <class OutIt, class Ch>
OutIt print_cdata_node(OutIt out, const xml_node<Ch>* node, int flags, int indent);
template <class OutIt, class Ch>
OutIt print_declaration_node(OutIt out, const xml_node<Ch>* node, int flags, int indent);
template <class OutIt, class Ch>
OutIt print_comment_node(OutIt out, const xml_node<Ch>* node, int flags, int indent);
template <class OutIt, class Ch>
OutIt print_doctype_node(OutIt out, const xml_node<Ch>* node, int flags, int indent);
template <class OutIt, class Ch>
OutIt print_pi_node(OutIt out, const xml_node<Ch>* node, int flags, int indent);
} // namespace internal
} // namespace rapidxml
#include <rapidxml/rapidxml.hpp>
#include <rapidxml/rapidxml_print.hpp>

namespace mrvBenchmark {

template <class Archive>
void SharedBone::serialize(Archive& archive)
{
    archive(CEREAL_NVP(name), CEREAL_NVP(position), CEREAL_NVP(rotation), CEREAL_NVP(father),
            CEREAL_NVP(children), CEREAL_NVP(index));
}

template <class Archive>
void SharedAsset::serialize(Archive& archive)
{
    archive(CEREAL_NVP(name), CEREAL_NVP(path), CEREAL_NVP(type), CEREAL_NVP(id), CEREAL_NVP(values));
}

template <class Archive>
void SharedCharacter::serialize(Archive& archive)
{
    archive(CEREAL_NVP(bones), CEREAL_NVP(assets));
}

namespace {

/// Stream buffers over memory that is there already: a peer pays for its own work and a copy of the bytes.
class WriteBuffer : public std::streambuf
{
public:
    explicit WriteBuffer(size_t size) : _bytes(size) { rewind(); }
    void rewind() { setp(_bytes.data(), _bytes.data() + _bytes.size()); }
    size_t written() const { return static_cast<size_t>(pptr() - pbase()); }
    const char* data() const { return pbase(); }

private:
    std::vector<char> _bytes;
};

class ReadBuffer : public std::streambuf
{
public:
    ReadBuffer(const char* data, size_t size)
    {
        char* begin = const_cast<char*>(data);
        setg(begin, begin, begin + size);
    }
};

std::string caseName(const char* what, int skeletons, int bones)
{
    return std::string(what) + "_" + std::to_string(skeletons * bones) + "_bones";
}

void reportObjects(State& state, size_t bones, size_t assets)
{
    rate(state, static_cast<double>(bones + assets), "objects/s");
}

std::string binaryBytes(const Character& character)
{
    mrv::BinaryStream stream;
    stream.pack(character);
    return stream.getStream().str();
}

template <class AnyCharacter>
std::string xmlText(const AnyCharacter& character)
{
    mrv::XMLStream stream;
    stream.pack(stream.getRoot(), character);
    std::ostringstream text;
    mrv::XMLDataFileParser().writeToBuffer(text, stream.getRoot());
    return text.str();
}

void addBinary(int skeletons, int bones)
{
    add("serialization/mrvCore/" + caseName("binary_save", skeletons, bones), [=](State& state) {
        Character character;
        fillCharacter(character, skeletons, bones);
        for (auto _ : state)
        {
            mrv::BinaryStream stream;
            stream.pack(character);
            benchmark::DoNotOptimize(stream.getLength());
        }
        reportObjects(state, character._bones.size(), character._assets.size());
    });
    add("serialization/mrvCore/" + caseName("binary_load", skeletons, bones), [=](State& state) {
        Character character;
        fillCharacter(character, skeletons, bones);
        const std::string bytes = binaryBytes(character);
        std::unique_ptr<Character> loaded;
        for (auto _ : state)
        {
            state.PauseTiming();
            loaded = std::make_unique<Character>();
            state.ResumeTiming();
            mrv::BinaryStream stream;
            stream.importFrom(reinterpret_cast<const uint8_t*>(bytes.data()), bytes.size());
            stream.unpack(*loaded);
        }
        requireEqual(*loaded, character);
        reportObjects(state, character._bones.size(), character._assets.size());
    });
}

template <class AnyCharacter>
void addXml(const std::string& form, int skeletons, int bones)
{
    add("serialization/mrvCore/" + caseName((form + "_save").c_str(), skeletons, bones), [=](State& state) {
        AnyCharacter character;
        fillCharacter(character, skeletons, bones);
        WriteBuffer out(xmlText(character).size() + 1);
        for (auto _ : state)
        {
            out.rewind();
            std::ostream text(&out);
            mrv::XMLStream stream;
            stream.exportObject(text, stream.getRoot(), character);
        }
        reportObjects(state, character._bones.size(), character._assets.size());
    });
    add("serialization/mrvCore/" + caseName((form + "_load").c_str(), skeletons, bones), [=](State& state) {
        AnyCharacter character;
        fillCharacter(character, skeletons, bones);
        const std::string text = xmlText(character);
        std::unique_ptr<AnyCharacter> loaded;
        for (auto _ : state)
        {
            state.PauseTiming();
            loaded = std::make_unique<AnyCharacter>();
            state.ResumeTiming();
            mrv::DataItem root;
            mrv::MrvString message;
            if (!mrv::XMLDataFileParser().tryReadFromBuffer(text.data(), text.size(), root, message))
                state.SkipWithError(message.c_str());
            mrv::XMLStream stream;
            stream.unpack(root, *loaded);
        }
        requireEqual(*loaded, character);
        reportObjects(state, character._bones.size(), character._assets.size());
    });
}

/// RapidXML on the text that the library writes: what its own work is built on.
template <class AnyCharacter>
void addRapidXml(const std::string& form, int bones)
{
    add("serialization/rapidxml/" + caseName((form + "_load").c_str(), 1, bones), [=](State& state) {
        AnyCharacter character;
        fillCharacter(character, 1, bones);
        const std::string text = xmlText(character);
        std::vector<char> copy(text.size() + 1);
        std::unique_ptr<rapidxml::xml_document<>> document;
        for (auto _ : state)
        {
            state.PauseTiming();
            std::memcpy(copy.data(), text.c_str(), text.size() + 1);
            document.reset();
            state.ResumeTiming();
            document = std::make_unique<rapidxml::xml_document<>>();
            document->parse<rapidxml::parse_no_data_nodes>(copy.data());
        }
        reportObjects(state, character._bones.size(), character._assets.size());
    });
    add("serialization/rapidxml/" + caseName((form + "_save").c_str(), 1, bones), [=](State& state) {
        AnyCharacter character;
        fillCharacter(character, 1, bones);
        const std::string text = xmlText(character);
        std::vector<char> copy(text.c_str(), text.c_str() + text.size() + 1);
        std::vector<char> out(2 * text.size());
        rapidxml::xml_document<> document;
        document.parse<rapidxml::parse_no_data_nodes>(copy.data());
        for (auto _ : state)
        {
            char* end = rapidxml::print(out.data(), document, 0);
            benchmark::DoNotOptimize(end);
        }
        reportObjects(state, character._bones.size(), character._assets.size());
    });
}

template <class Output, class Input, class... Options>
void addCereal(const std::string& peer, const char* save, const char* load, int bones, Options... options)
{
    const auto write = [=](WriteBuffer& out, SharedCharacter& character) {
        out.rewind();
        std::ostream stream(&out);
        Output archive(stream, options...);
        archive(cereal::make_nvp("character", character));
    };
    add("serialization/" + peer + "/" + caseName(save, 1, bones), [=](State& state) {
        SharedCharacter character;
        fillCharacter(character, bones);
        WriteBuffer out(16u << 20);
        for (auto _ : state)
            write(out, character);
        reportObjects(state, character.bones.size(), character.assets.size());
    });
    add("serialization/" + peer + "/" + caseName(load, 1, bones), [=](State& state) {
        SharedCharacter character;
        fillCharacter(character, bones);
        WriteBuffer out(16u << 20);
        write(out, character);
        SharedCharacter loaded;
        for (auto _ : state)
        {
            state.PauseTiming();
            loaded = {};
            ReadBuffer in(out.data(), out.written());
            state.ResumeTiming();
            std::istream stream(&in);
            Input archive(stream);
            archive(cereal::make_nvp("character", loaded));
        }
        reportObjects(state, character.bones.size(), character.assets.size());
    });
}

} // namespace
} // namespace mrvBenchmark

int main(int argc, char** argv)
{
    using namespace mrvBenchmark;
    mrv::initCore();
    registerCharacter();

    addBinary(1, 1000);
    addXml<FlatCharacter>("xml", 1, 1000);
    addXml<Character>("xml_nested", 1, 1000);
    addCereal<cereal::BinaryOutputArchive, cereal::BinaryInputArchive>("cereal", "binary_save", "binary_load",
                                                                       1000);
    using Xml = cereal::XMLOutputArchive;
    addCereal<Xml, cereal::XMLInputArchive>("cereal", "xml_save", "xml_load", 1000,
                                            Xml::Options().indent(false));
    addRapidXml<FlatCharacter>("xml", 1000);
    addRapidXml<Character>("xml_nested", 1000);
    // The curve: the time for an object must not grow with the number of objects.
    for (const int skeletons : { 10, 100 })
    {
        addBinary(skeletons, 1000);
        addXml<FlatCharacter>("xml", skeletons, 1000);
    }
    const int result = run(argc, argv);

    removeCharacter();
    mrv::finishCore(true);
    return result;
}
