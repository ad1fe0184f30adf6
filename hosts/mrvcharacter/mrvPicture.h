// hosts/mrvcharacter/mrvPicture.h
// A picture to draw on, and its file.
#pragma once

#include <memory>
#include <string>

namespace mrvcharacter {

/// Red, green and blue from 0 to 1.
struct Colour
{
    double red;
    double green;
    double blue;
};

/// Pixels, from the upper left corner.
struct Point
{
    double x;
    double y;
};

enum class TextAnchor { LEFT, CENTER, RIGHT };

struct TextStyle
{
    double size;
    Colour colour;
    bool isBold = false;
    TextAnchor anchor = TextAnchor::LEFT;
};

/// Opaque, drawn over from back to front, with smooth edges. Coordinates are pixels.
class Picture
{
public:
    Picture(int width, int height, const Colour& ground);
    ~Picture();
    Picture(const Picture&) = delete;
    Picture& operator=(const Picture&) = delete;

    int getWidth() const { return _width; }
    int getHeight() const { return _height; }

    /// Exactly this pixel, which must be in the picture.
    void setPixel(int x, int y, const Colour& colour);
    void fillBox(Point corner, double width, double height, double radius, const Colour& colour);
    /// With round ends.
    void drawLine(Point from, Point to, double width, const Colour& colour);
    void fillDisc(Point centre, double radius, const Colour& colour);
    /// The point is on the base line. The text is UTF-8; what is not is drawn as a question mark.
    void drawText(const std::string& text, Point point, const TextStyle& style);
    double getTextWidth(const std::string& text, const TextStyle& style);

    /// Writes a PNG file. False with a `failure` for the user.
    bool write(const std::string& file, std::string& failure) const;

private:
    struct Canvas;

    int _width;
    int _height;
    std::unique_ptr<Canvas> _canvas;
};

} // namespace mrvcharacter
