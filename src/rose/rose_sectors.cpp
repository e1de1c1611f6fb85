// SPDX-License-Identifier: MIT

#include "rose/rose_sectors.h"

#include "classify/class_rule.h"
#include "core/appended_number.h"
#include "core/data_format.h"
#include "core/messages.h"
#include "core/plot_store.h"
#include "orientation/angles.h"
#include "rose/rose_count.h"
#include "rose/rose_shown.h"
#include "rose/rose_tables.h"
#include "stereo/row_positions.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <optional>
#include <span>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

namespace quandrel {

namespace {

constexpr double kFullTurn = 360;
constexpr double kHalfTurn = 180;

// Sizes such as 360 / 7 meet their edges only approximately: an azimuth this close is on the edge.
constexpr double kEdgeTolerance = 1e-9;

constexpr const char* kOddSizeQuestion =
    "Because you have chosen an odd sector size\n"
    "one sector will be smaller than the others.Continue anyway?";
constexpr const char* kNoLinesText =
    "These data have no appended lines to be used as sample lines.\n"
    "The rose is drawn without a bias correction.";

/// The number of distinct texts whose classes are cached.
constexpr std::size_t kRememberedNames = 1000;

/// The sector size for which the user accepted a smaller last sector of a plot.
struct AcceptedSectorSize {
    double size = 0;
};

void KeepAcceptedSize(Plot& plot, double size) {
    plot.attachments.Of<AcceptedSectorSize>().size = size;
}

/// The value, rounded if it is a whole number except for rounding errors.
double Snapped(double value) {
    const double whole = RoundToEven(value);
    return std::abs(value - whole) < kEdgeTolerance ? whole : value;
}

double StartMath(double startAzimuth, double size) {
    const double start = (startAzimuth <= 90 ? 90 : 450) - startAzimuth - size;
    return start < 0 ? start + kFullTurn : start;
}

/// The common bin of a sector and its opposite.
int SectorOfPair(const SectorLayout& layout, int sector) {
    const int half = layout.sectors / 2;
    const int lower = sector > half ? sector - half : sector;
    // Sector 1 ends one size clockwise from the start.
    const double end = layout.startAzimuth + (2 - lower) * layout.size;
    const double turns = Snapped(end / kHalfTurn);
    // The sector that ends above 0 and at 180 at most, after whole turns: the first half and its
    // end.
    const auto halfTurns = static_cast<long>(std::ceil(turns));
    return halfTurns % 2 != 0 ? lower : lower + half;
}

/// True when the user has accepted a smaller last sector, or no question is needed.
bool AcceptsDivision(Plot& plot, const SectorDivision& division) {
    bool& isAsked = RoseOf(plot).isOddAsked;
    if (division.oddSize == 0 || isAsked) {
        return true;
    }
    const auto* accepted = plot.attachments.Find<AcceptedSectorSize>();
    if (accepted != nullptr && accepted->size == division.size
        && plot.record.RoseOddSectorSize == division.oddSize) {
        return true;
    }
    isAsked = AskToGoOn(kOddSizeQuestion);
    if (isAsked) {
        KeepAcceptedSize(plot, division.size);
    }
    return isAsked;
}

bool DrawsWind(const PlotRecord& record) {
    const int kind = RoseKindOf(record.RoseType);
    return kind >= kRoseWindSpeed && kind <= kRoseOverlaidWind;
}

/// Cells 1 to `count` of a column. They are copied to `storage` where the column has fewer rows.
template <class T>
std::span<const T> RowsOf(const RowColumn<T>& column, std::size_t count, std::vector<T>& storage) {
    const std::span<const T> cells = column.Rows();
    if (cells.size() > count) {
        return cells.subspan(1, count);
    }
    storage.assign(count, T{});
    if (cells.size() > 1) {
        std::copy(cells.begin() + 1, cells.end(), storage.begin());
    }
    return storage;
}

/// The columns of the main rows of a plot that a rose with some settings needs.
class GatheredRows {
public:
    GatheredRows(const Plot& plot, const PlotRecord& record)
        : plot_(plot)
        , count_(static_cast<std::size_t>(std::max(record.NumData, 0))) {
        GatherOrientations(record);
        if (record.HasAppendedNumeric != 0) {
            rows_.numbers = RowsOf(plot.rows.number, count_, numbers_);
        }
        if (record.HasAppendedLine != 0) {
            rows_.linePlunges = RowsOf(plot.rows.lineDip, count_, linePlunges_);
            rows_.lineTrends = RowsOf(plot.rows.lineAzimuth, count_, lineTrends_);
        }
        const std::optional<ClassColumn> column = RoseClassColumn(record);
        if (DrawsWind(record) || column == kTextNumberClasses) {
            ReadTexts();
        }
        if (column) {
            Classify(RuleOfClassTable(record.ClassTable, *column));
        }
    }

    GatheredRows(const GatheredRows&) = delete;
    GatheredRows& operator=(const GatheredRows&) = delete;

    [[nodiscard]] const RoseRows& Rows() const { return rows_; }

private:
    void GatherOrientations(const PlotRecord& record);
    void ReadTexts();
    void Classify(const ClassRule& rule);
    [[nodiscard]] int ClassOfRow(const ClassRule& rule, std::size_t row);
    [[nodiscard]] int RememberedClass(const ClassRule& rule, std::string_view text);

    const Plot& plot_;
    std::size_t count_;
    RoseRows rows_;
    std::vector<std::int32_t> dips_;
    std::vector<std::int32_t> azimuths_;
    std::vector<float> numbers_;
    std::vector<double> textNumbers_;
    std::vector<std::int16_t> classes_;
    std::vector<std::int32_t> linePlunges_;
    std::vector<std::int32_t> lineTrends_;
    std::unordered_map<std::string_view, int> classOfText_;
};

void GatheredRows::GatherOrientations(const PlotRecord& record) {
    // Rows of a child plot may be marked as missing; the columns alone do not show this.
    if (record.ShowSecondary == 0 && record.KinematicState == 0) {
        rows_.dips = RowsOf(plot_.rows.dip, count_, dips_);
        rows_.azimuths = RowsOf(plot_.rows.azimuth, count_, azimuths_);
        return;
    }
    dips_.resize(count_);
    azimuths_.resize(count_);
    for (std::size_t row = 0; row < count_; ++row) {
        const Attitude shown = OrientationShown(plot_, static_cast<std::int32_t>(row) + 1);
        dips_[row] = WholeDegree(shown.dip);
        azimuths_[row] = WholeDegree(shown.azimuth);
    }
    rows_.dips = dips_;
    rows_.azimuths = azimuths_;
}

void GatheredRows::ReadTexts() {
    textNumbers_.resize(count_);
    for (std::size_t row = 0; row < count_; ++row) {
        textNumbers_[row] = ParseAppendedNumber(plot_.rows.text(static_cast<std::int32_t>(row) + 1))
                                .value_or(std::numeric_limits<double>::quiet_NaN());
    }
    rows_.textNumbers = textNumbers_;
}

void GatheredRows::Classify(const ClassRule& rule) {
    classes_.resize(count_);
    for (std::size_t row = 0; row < count_; ++row) {
        classes_[row] = static_cast<std::int16_t>(ClassOfRow(rule, row));
    }
    rows_.classes = classes_;
}

int GatheredRows::ClassOfRow(const ClassRule& rule, std::size_t row) {
    switch (rule.column) {
    case kNumberClasses: {
        const float number = rows_.numbers.empty() ? kInvalidNumber : rows_.numbers[row];
        if (number == kInvalidNumber) {
            return rule.keepLow ? 1 : kNoClassValue; // an unknown value is in the low class
        }
        return ClassOfNumber(rule, static_cast<double>(number));
    }
    case kTextNumberClasses:
        return std::isnan(textNumbers_[row]) ? kNoClassValue
                                             : ClassOfNumber(rule, textNumbers_[row]);
    default:
        return RememberedClass(rule, plot_.rows.text(static_cast<std::int32_t>(row) + 1));
    }
}

/// The class of a name. Results are cached, because there are usually few distinct names and
/// comparing is slow.
int GatheredRows::RememberedClass(const ClassRule& rule, std::string_view text) {
    const auto known = classOfText_.find(text);
    if (known != classOfText_.end()) {
        return known->second;
    }
    const int classNumber = ClassOfName(rule, text);
    if (classOfText_.size() < kRememberedNames) {
        classOfText_.emplace(text, classNumber);
    }
    return classNumber;
}

/// Removes a bias correction that the rows do not allow. False when none is left.
[[nodiscard]] bool MendBias(PlotRecord& record) {
    if (!IsRoseBiasCorrected(record)) {
        return true;
    }
    if (record.RoseSamplePlunge == kOwnSampleLine && record.HasAppendedLine == 0) {
        record.RoseBiasMode = kNoBias;
        return false;
    }
    if (record.ShowSecondary == 0 && record.PrimaryFormat <= kDirections) {
        record.RoseBiasMode = kHorizontalAngle; // there is no dip for an angle in space
    }
    return true;
}

RoseCountSettings SettingsOf(const PlotRecord& record, const SectorLayout& layout) {
    RoseCountSettings settings;
    settings.kind = RoseKindOf(record.RoseType);
    settings.layout = layout;
    settings.strikes = record.DataKind == kPlanes;
    // The sign of the plunge marks a T axis, even a horizontal one: all keep the lower end's trend.
    settings.polar =
        record.DataKind == kPolarLines && !ShowsPlaneData(record) && record.AxesTitle.empty();
    settings.grouped = record.HasFrequencyColumn != 0;
    if (const std::optional<ClassColumn> column = RoseClassColumn(record)) {
        settings.classes = LastClass(RuleOfClassTable(record.ClassTable, *column));
    }
    settings.bias = {record.RoseBiasMode, settings.strikes, record.RoseMinBiasAngle,
                     record.RoseSamplePlunge == kOwnSampleLine};
    settings.sampleLine = {record.RoseSamplePlunge, record.RoseSampleTrend};
    return settings;
}

void Store(RoseTables tables, const SectorLayout& layout, Plot& plot) {
    PlotRecord& record = plot.record;
    PlotRose& rose = RoseOf(plot);
    rose.isCounted = true;
    rose.sectors = std::move(tables.sectors);
    rose.sectorStats = std::move(tables.stats);
    rose.trigSums = tables.trigSums;
    rose.angles = std::move(tables.angles);
    rose.azimuths = std::move(tables.azimuths);
    rose.isDirectional = layout.directional;
    rose.startMath = layout.startMath;
    rose.leftOut = tables.leftOut;
    record.RoseStats = tables.totals;
    if (RoseClassOf(record.RoseType) != kRoseUnclassified) {
        record.NumClassified = tables.rowsCounted;
    }
}

} // namespace

SectorDivision DivideCircle(double size) {
    SectorDivision division;
    division.size = size >= 1 ? std::min(size, kFullTurn) : 1.0;
    division.sectors = static_cast<int>(Snapped(kFullTurn / division.size));
    division.oddSize = RoundToEven(kFullTurn - division.sectors * division.size);
    if (division.oddSize != 0) {
        ++division.sectors;
    }
    return division;
}

SectorLayout LayOutSectors(const SectorDivision& division, double startAzimuth, bool directional) {
    SectorLayout layout;
    layout.size = division.size;
    layout.sectors = division.sectors;
    layout.startAzimuth = std::isfinite(startAzimuth) ? WrappedAzimuth(startAzimuth) : 0;
    layout.startMath = StartMath(layout.startAzimuth, layout.size);
    layout.directional = directional;
    layout.pairs = !directional && division.oddSize == 0 && division.sectors % 2 == 0;
    layout.bothEnds = !directional && !layout.pairs && division.sectors > 1;
    return layout;
}

SectorLayout LayoutOfRose(const PlotRecord& record) {
    return LayOutSectors(DivideCircle(record.RoseSectorSize), record.RoseStartAngle,
                         record.DataKind == kPolarLines);
}

bool CountsBothEnds(const PlotRecord& record) {
    return LayoutOfRose(record).bothEnds;
}

double FoldedAzimuth(double azimuth, bool directional) {
    const double wrapped = WrappedAzimuth(azimuth);
    return directional ? wrapped : std::fmod(wrapped, kHalfTurn);
}

int SectorOfAzimuth(const SectorLayout& layout, double azimuth) {
    const double folded = FoldedAzimuth(azimuth, layout.directional || layout.bothEnds);
    double beyondStart = (folded <= 90 ? 90 : 450) - folded - layout.startMath;
    if (beyondStart < -kEdgeTolerance) {
        beyondStart += kFullTurn;
    }
    const int sector = static_cast<int>(Snapped(beyondStart / layout.size)) + 1;
    const int counted = std::clamp(sector, 1, layout.sectors);
    return layout.pairs ? SectorOfPair(layout, counted) : counted;
}

CountedSectors SectorsOfAxis(const SectorLayout& layout, double azimuth) {
    CountedSectors counted;
    counted.first = SectorOfAzimuth(layout, azimuth);
    if (layout.bothEnds) {
        const int opposite = SectorOfAzimuth(layout, azimuth + kHalfTurn);
        counted.second = opposite == counted.first ? 0 : opposite;
    }
    return counted;
}

bool IsRoseBiasCorrected(const PlotRecord& record) {
    return record.RoseBiasMode != kNoBias && RoseKindOf(record.RoseType) <= kRoseMeanValue;
}

std::optional<ClassColumn> RoseClassColumn(const PlotRecord& record) {
    switch (RoseClassOf(record.RoseType)) {
    case kRoseByLength:
        return kNumberClasses;
    case kRoseByType:
        return NumberOf(record.ClassTable[kBaseRow][kNameClasses]) == 1 ? kTextNumberClasses
                                                                        : kNameClasses;
    default:
        return std::nullopt;
    }
}

bool CountRose(Plot& plot, MayAsk mayAsk) {
    PlotRecord& record = plot.record;
    if (record.NumValidData <= 0) {
        return true;
    }
    const SectorDivision division = DivideCircle(record.RoseSectorSize);
    if (mayAsk == MayAsk::Yes && !AcceptsDivision(plot, division)) {
        return false;
    }
    record.RoseSectorSize = division.size;
    if (division.oddSize != 0) {
        record.RoseOddSectorSize = division.oddSize; // Kept: not cleared when all are equal
    }
    if (!MendBias(record) && mayAsk == MayAsk::Yes) {
        Tell(kNoLinesText);
    }
    const SectorLayout layout = LayoutOfRose(record);
    const GatheredRows rows(plot, record);
    Store(CountRoseRows(SettingsOf(record, layout), rows.Rows()), layout, plot);
    RoseOf(plot).isOddAsked = false;
    return true;
}

bool RoseCountSectors() {
    return CountRose(ActivePlot(), MayAsk::Yes);
}

RoseTables TablesOfRose(const Plot& plot, PlotRecord& asked) {
    asked.RoseSectorSize = DivideCircle(asked.RoseSectorSize).size;
    (void)MendBias(asked);
    const GatheredRows rows(plot, asked);
    return CountRoseRows(SettingsOf(asked, LayoutOfRose(asked)), rows.Rows());
}

std::vector<RoseObservation> RowsOfRose(const Plot& plot) {
    const PlotRecord& record = plot.record;
    const GatheredRows rows(plot, record);
    return CountRoseRows(SettingsOf(record, LayoutOfRose(record)), rows.Rows()).rows;
}

bool AskForSectorSize(Plot& plot, double size) {
    const SectorDivision division = DivideCircle(size);
    if (division.oddSize == 0 || plot.record.NumValidData <= 0) {
        ForgetAcceptedSectorSize(plot);
        return true;
    }
    if (!AskToGoOn(kOddSizeQuestion)) {
        return false;
    }
    KeepAcceptedSize(plot, division.size);
    return true;
}

void AcceptSectorSize(Plot& plot) {
    ForgetRose(plot);
    const SectorDivision division = DivideCircle(plot.record.RoseSectorSize);
    KeepAcceptedSize(plot, division.size);
    if (division.oddSize != 0) {
        plot.record.RoseOddSectorSize = division.oddSize;
    }
}

void ForgetAcceptedSectorSize(Plot& plot) {
    plot.attachments.Drop<AcceptedSectorSize>();
}

} // namespace quandrel
