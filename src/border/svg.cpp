// SPDX-License-Identifier: MIT

#include "quandrel/svg.h"

#include "svg/svg_writer.h"
#include "svg/text_metrics.h"

#include <algorithm>
#include <iterator>
#include <numbers>

namespace quandrel::api {

namespace {

constexpr double kPixelsInAPoint = 96.0 / 72.0;
constexpr double kThinnestLine = 0.25; ///< pixels

quandrel::Point In(Point point) {
    return {point.x, point.y};
}

std::vector<quandrel::Point> In(std::span<const Point> points) {
    std::vector<quandrel::Point> in(points.size());
    std::ranges::transform(points, in.begin(), [](Point point) { return In(point); });
    return in;
}

quandrel::Colour In(Colour colour) {
    return {colour.red, colour.green, colour.blue};
}

SvgPen In(const Pen& pen, SvgCap cap = SvgCap::Round) {
    return {In(pen.colour),
            pen.points > 0 ? pen.points * kPixelsInAPoint : std::max(pen.width, kThinnestLine),
            static_cast<int>(pen.dash), pen.opacity, cap};
}

SvgFill In(const Fill& fill) {
    return {static_cast<int>(fill.pattern), In(fill.colour), fill.opacity, {}};
}

/// Azimuths run from the top, angles of the document from +x; both clockwise.
SvgArc ArcOf(Point centre, double radius, double from, double sweep) {
    constexpr double kRadians = std::numbers::pi / 180;
    return {In(centre), radius, radius, (from - 90) * kRadians, sweep * kRadians};
}

double SizeOf(const Font& font) {
    return font.points * kPixelsInAPoint;
}

SvgPart PartOf(const MarkerPart& part) {
    const SvgPen pen = In(part.pen, SvgCap::Square);
    switch (part.kind) {
    case MarkerPart::Kind::kLine:
        return {LineShape(In(part.points)), pen, {}};
    case MarkerPart::Kind::kShape:
        return {ClosedShape(In(part.points)), pen, In(part.fill)};
    case MarkerPart::Kind::kCircle:
        break;
    }
    return {EllipseShape(In(part.points.at(0)), part.radius, part.radius), pen, In(part.fill)};
}

bool IsOpaque(const MarkerPart& part) {
    return part.pen.opacity >= 1 && part.fill.opacity >= 1;
}

} // namespace

SvgPicture::SvgPicture(Extent size)
    : size_(size)
    , writer_(std::make_unique<SvgWriter>(size.width, size.height, 1)) {}

SvgPicture::SvgPicture(const SvgPicture& other)
    : Surface(other)
    , size_(other.size_)
    , writer_(std::make_unique<SvgWriter>(*other.writer_)) {}

SvgPicture::SvgPicture(SvgPicture&& other) noexcept = default;

SvgPicture& SvgPicture::operator=(const SvgPicture& other) {
    return *this = SvgPicture(other);
}

SvgPicture& SvgPicture::operator=(SvgPicture&& other) noexcept = default;

SvgPicture::~SvgPicture() = default;

std::string SvgPicture::Document() const {
    return writer_->Document();
}

void SvgPicture::Clear(Colour background) {
    writer_->Clear();
    writer_->Add(BoxShape({0, 0}, {size_.width, size_.height}), kNoSvgPen,
                 {kSolidFill, In(background), 1, {}});
}

void SvgPicture::Polyline(std::span<const Point> points, const Pen& pen) {
    writer_->Add(LineShape(In(points)), In(pen));
}

void SvgPicture::Polygon(std::span<const Point> points, const Pen& pen, const Fill& fill) {
    writer_->Add(ClosedShape(In(points)), In(pen), In(fill));
}

void SvgPicture::Path(std::span<const std::vector<Point>> rings, const Pen& pen, const Fill& fill) {
    std::vector<std::vector<quandrel::Point>> in;
    in.reserve(rings.size());
    for (const std::vector<Point>& ring : rings) {
        in.push_back(In(ring));
    }
    writer_->Add(RingsShape(in), In(pen), In(fill));
}

void SvgPicture::Circle(Point centre, double radius, const Pen& pen, const Fill& fill) {
    writer_->Add(EllipseShape(In(centre), radius, radius), In(pen), In(fill));
}

void SvgPicture::Arc(Point centre, double radius, double from, double sweep, const Pen& pen) {
    writer_->Add(ArcShape(ArcOf(centre, radius, from, sweep)), In(pen));
}

void SvgPicture::Wedge(Point centre, double radius, double from, double sweep, const Pen& pen,
                       const Fill& fill) {
    writer_->Add(WedgeShape(ArcOf(centre, radius, from, sweep)), In(pen), In(fill));
}

void SvgPicture::Markers(const Marker& marker, std::span<const Point> positions) {
    if (marker.parts.empty() || positions.empty()) {
        return;
    }
    std::vector<SvgPart> parts;
    std::ranges::transform(marker.parts, std::back_inserter(parts), PartOf);
    writer_->Use(writer_->Symbol(parts), In(positions),
                 std::ranges::all_of(marker.parts, IsOpaque) ? SvgRepeats::Last : SvgRepeats::All);
}

void SvgPicture::Text(Point topLeft, std::string_view utf8, const Font& font, Colour colour) {
    const double size = SizeOf(font);
    writer_->Text({topLeft.x, topLeft.y + AscentInEms() * size}, utf8,
                  {font.family, size, font.bold, font.italic, font.underline}, In(colour));
}

void SvgPicture::PushClip(Point centre, double radius) {
    writer_->PushClip(In(centre), radius, radius);
}

void SvgPicture::PopClip() {
    writer_->PopClip();
}

void SvgPicture::BeginGroup(std::string_view id, std::string_view title) {
    writer_->BeginGroup(id, title);
}

void SvgPicture::EndGroup() {
    writer_->EndGroup();
}

double SvgPicture::TextWidth(std::string_view utf8, const Font& font) const {
    return WidthInEms(utf8, font.bold) * SizeOf(font);
}

double SvgPicture::TextHeight(const Font& font) const {
    return (AscentInEms() + DescentInEms()) * SizeOf(font);
}

} // namespace quandrel::api
