// tests/hosts/mrvcharacter/mrvHostPictureTest.cpp
// What the batch host draws, and what it puts on the plane and on the ground.
#include "tests/hosts/mrvcharacter/mrvHostProgram.h"

#include "mrvCore/utils/mrvPNG.h"

#include <algorithm>
#include <cstdlib>
#include <set>
#include <sstream>

namespace mrv {

namespace {

TEST(Host, drawShowsBodiesAndPoses)
{
    const TemporaryFolder folder;
    const MrvString pose = folder.write("pose.csv", "bone,qx,qy,qz,qw\nhips,0,0,1,0\n3,0.5,0,0,0.5\n");
    const std::string ragdoll = folder.path("r.mvc").c_str();
    const std::string picture = folder.path("p.png").c_str();
    runWell({ "ragdoll", samples + "courier.mvc", ragdoll });
    std::set<std::string> pictures;
    const std::vector<std::vector<std::string>> options = { {}, { "--ragdoll" }, { "--pose", pose.c_str() } };
    for (std::vector<std::string> words : options)
    {
        words.insert(words.begin(), { "draw", ragdoll, picture });
        runWell(words);
        pictures.insert(readFile(picture));
    }
    EXPECT_EQ(pictures.size(), options.size()) << "an option that changes nothing";
}

TEST(Host, triangulateNamesPositionsInTheInput)
{
    const TemporaryFolder folder;
    const std::string out = folder.path("out.csv").c_str();
    const MrvString points = folder.write("points.csv", "x,y\n0,0\n0,0\n4,0\n0,4\n4,4.5\n");
    runWell({ "triangulate", points.c_str(), out, "--png", folder.path("out.png").c_str() });
    std::istringstream table(readFile(out));
    std::string line;
    std::getline(table, line);
    EXPECT_EQ(line, "i,j,k");
    std::vector<std::string> triangles;
    while (std::getline(table, line))
    {
        ASSERT_EQ(line.size(), 5u);
        while (line[0] > line[2] || line[0] > line[4]) // the least first; the turn stays
            line = line.substr(2) + ',' + line[0];
        triangles.push_back(line);
    }
    std::sort(triangles.begin(), triangles.end());
    EXPECT_EQ(triangles, (std::vector<std::string>{ "0,2,3", "2,4,3" }));
    EXPECT_EQ(folder.countEntries(), 3u); // no part of a file

    unsigned char* pixels = nullptr;
    unsigned int width = 0;
    unsigned int height = 0;
    ASSERT_EQ(lodepng_decode24_file(&pixels, &width, &height, folder.path("out.png").c_str()), 0u);
    EXPECT_GT(height, width); // the points are higher than wide, and there is a heading
    std::free(pixels);
}

TEST(Host, pinPutsPositionsOnTheGround)
{
    const TemporaryFolder folder;
    const std::string out = folder.path("pinned.csv").c_str();
    const MrvString ground = folder.write("ground.obj", "v 0 0 1\nv 8 0 1\nv 8 8 1\nv 0 8 1\nf 1 2 3 4\n");
    const MrvString positions = folder.write("positions.csv", "x,y,z\n2,1,5\n 1 ,2,-3\n9,9,4\n");
    runWell({ "pin", ground.c_str(), positions.c_str(), out });
    std::string table = readFile(out);
    // The square may be cut into triangles either way.
    for (size_t i = table.find(",1,1\n"); i != std::string::npos; i = table.find(",1,1\n"))
        table[i + 3] = '0';
    EXPECT_EQ(table, "x,y,z,nx,ny,nz,triangle\n2,1,1,0,0,1,0\n1,2,1,0,0,1,0\n9,9,4,0,0,0,-1\n");
}

} // namespace

} // namespace mrv
