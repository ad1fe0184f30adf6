// hosts/mrvcharacter/mrvPicture.cpp
#include "hosts/mrvcharacter/mrvPicture.h"

#include "mrvCore/utils/mrvPNG.h"

#include <cairo.h>

#include <cmath>
#include <cstdint>
#include <cstring>
#include <vector>

#ifdef __SANITIZE_ADDRESS__
// Fontconfig, which finds the letters for Cairo, keeps its tables to the end of the program.
extern "C" __attribute__((visibility("default"))) const char* __lsan_default_suppressions()
{
    return "leak:libfontconfig";
}

// Nor a word about them on the standard error, which belongs to messages.
extern "C" __attribute__((visibility("default"))) const char* __lsan_default_options()
{
    return "print_suppressions=0";
}
#endif

namespace mrvcharacter {

struct Picture::Canvas
{
    cairo_surface_t* surface;
    cairo_t* context;
};

namespace {

constexpr double pi = 3.14159265358979323846;

void setColour(cairo_t* context, const Colour& colour)
{
    cairo_set_source_rgb(context, colour.red, colour.green, colour.blue);
}

void selectFont(cairo_t* context, const TextStyle& style)
{
    cairo_select_font_face(context, "sans-serif", CAIRO_FONT_SLANT_NORMAL,
                           style.isBold ? CAIRO_FONT_WEIGHT_BOLD : CAIRO_FONT_WEIGHT_NORMAL);
    cairo_set_font_size(context, style.size);
}

/// Length of the UTF-8 sequence at the start of a text of at least one byte, 0 if there is none.
size_t getSequenceLength(const char* text, size_t size)
{
    const auto lead = static_cast<unsigned char>(text[0]);
    const size_t length = lead < 0x80   ? 1
                          : lead < 0xC2 ? 0
                          : lead < 0xE0 ? 2
                          : lead < 0xF0 ? 3
                          : lead < 0xF5 ? 4
                                        : 0;
    if (length > size)
        return 0;
    for (size_t i = 1; i < length; ++i)
        if ((text[i] & 0xC0) != 0x80)
            return 0;
    return length;
}

// A text that is no UTF-8 puts Cairo into an error state, in which it draws nothing any more.
std::string toValidText(const std::string& text)
{
    std::string valid;
    for (size_t i = 0; i < text.size();)
    {
        const size_t length = getSequenceLength(text.data() + i, text.size() - i);
        length == 0 ? valid.append("?") : valid.append(text, i, length);
        i += length == 0 ? 1 : length;
    }
    return valid;
}

} // namespace

Picture::Picture(int width, int height, const Colour& ground)
    : _width(width)
    , _height(height)
    , _canvas(std::make_unique<Canvas>())
{
    _canvas->surface = cairo_image_surface_create(CAIRO_FORMAT_RGB24, width, height);
    _canvas->context = cairo_create(_canvas->surface);
    cairo_set_line_cap(_canvas->context, CAIRO_LINE_CAP_ROUND);
    setColour(_canvas->context, ground);
    cairo_paint(_canvas->context);
}

Picture::~Picture()
{
    cairo_destroy(_canvas->context);
    cairo_surface_destroy(_canvas->surface);
}

void Picture::setPixel(int x, int y, const Colour& colour)
{
    cairo_surface_flush(_canvas->surface);
    unsigned char* const pixels = cairo_image_surface_get_data(_canvas->surface);
    if (pixels == nullptr) // write() will tell
        return;
    const auto byteOf = [](double share) { return static_cast<uint32_t>(std::lround(share * 255.0)); };
    const uint32_t pixel = byteOf(colour.red) << 16 | byteOf(colour.green) << 8 | byteOf(colour.blue);
    const size_t stride = static_cast<size_t>(cairo_image_surface_get_stride(_canvas->surface));
    std::memcpy(pixels + static_cast<size_t>(y) * stride + static_cast<size_t>(x) * sizeof(pixel), &pixel,
                sizeof(pixel));
    cairo_surface_mark_dirty_rectangle(_canvas->surface, x, y, 1, 1);
}

void Picture::fillBox(Point corner, double width, double height, double radius, const Colour& colour)
{
    cairo_t* context = _canvas->context;
    const double right = corner.x + width;
    const double bottom = corner.y + height;
    cairo_new_sub_path(context);
    cairo_arc(context, right - radius, corner.y + radius, radius, -pi / 2, 0);
    cairo_arc(context, right - radius, bottom - radius, radius, 0, pi / 2);
    cairo_arc(context, corner.x + radius, bottom - radius, radius, pi / 2, pi);
    cairo_arc(context, corner.x + radius, corner.y + radius, radius, pi, 3 * pi / 2);
    cairo_close_path(context);
    setColour(context, colour);
    cairo_fill(context);
}

void Picture::drawLine(Point from, Point to, double width, const Colour& colour)
{
    setColour(_canvas->context, colour);
    cairo_set_line_width(_canvas->context, width);
    cairo_move_to(_canvas->context, from.x, from.y);
    cairo_line_to(_canvas->context, to.x, to.y);
    cairo_stroke(_canvas->context);
}

void Picture::fillDisc(Point centre, double radius, const Colour& colour)
{
    setColour(_canvas->context, colour);
    cairo_arc(_canvas->context, centre.x, centre.y, radius, 0, 2 * pi);
    cairo_fill(_canvas->context);
}

double Picture::getTextWidth(const std::string& text, const TextStyle& style)
{
    selectFont(_canvas->context, style);
    cairo_text_extents_t extents = {};
    cairo_text_extents(_canvas->context, toValidText(text).c_str(), &extents);
    return extents.x_advance;
}

void Picture::drawText(const std::string& text, Point point, const TextStyle& style)
{
    const double share = style.anchor == TextAnchor::LEFT     ? 0.0
                         : style.anchor == TextAnchor::CENTER ? 0.5
                                                              : 1.0;
    const double left = point.x - share * getTextWidth(text, style);
    setColour(_canvas->context, style.colour);
    cairo_move_to(_canvas->context, left, point.y);
    cairo_show_text(_canvas->context, toValidText(text).c_str());
}

bool Picture::write(const std::string& file, std::string& failure) const
{
    cairo_surface_flush(_canvas->surface);
    const cairo_status_t status = cairo_status(_canvas->context);
    const unsigned char* pixels = cairo_image_surface_get_data(_canvas->surface);
    if (status != CAIRO_STATUS_SUCCESS || pixels == nullptr)
    {
        failure = cairo_status_to_string(status);
        return false;
    }
    const size_t stride = static_cast<size_t>(cairo_image_surface_get_stride(_canvas->surface));
    std::vector<unsigned char> image;
    image.reserve(static_cast<size_t>(_width) * static_cast<size_t>(_height) * 3);
    for (size_t y = 0; y < static_cast<size_t>(_height); ++y)
        for (size_t x = 0; x < static_cast<size_t>(_width); ++x)
        {
            uint32_t pixel = 0; // 0x00RRGGBB in the order of the machine
            std::memcpy(&pixel, pixels + y * stride + x * sizeof(pixel), sizeof(pixel));
            for (const int shift : { 16, 8, 0 })
                image.push_back(static_cast<unsigned char>(pixel >> shift));
        }
    const unsigned int code = mrv::lodepng_encode24_file(
        file.c_str(), image.data(), static_cast<unsigned int>(_width), static_cast<unsigned int>(_height));
    if (code != 0)
        failure = mrv::lodepng_error_text(code);
    return code == 0;
}

} // namespace mrvcharacter
