// SPDX-License-Identifier: MIT

#include "summary/summary_file.h"

#include "stereo/distinct_lines.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <filesystem>
#include <fstream>
#include <utility>

namespace quandrel {

namespace {

constexpr std::string_view kSignature = "QuandrelSummary\n";
constexpr std::uint32_t kVersion = 1;
constexpr const char* kNoSummary = "It is not a summary.";
constexpr const char* kNewer = "The summary is of a later version of the program.";
constexpr const char* kDamaged = "The summary is damaged.";
constexpr std::uintmax_t kLargestFile = std::uintmax_t{64} << 20U;

/// FNV-1a, 64 bits (G. Fowler, L. C. Noll, K.-P. Vo, 1991).
std::uint64_t ChecksumOf(std::string_view bytes) {
    std::uint64_t hash = 0xcbf29ce484222325U;
    for (const char byte : bytes) {
        hash = (hash ^ static_cast<unsigned char>(byte)) * 0x100000001b3U;
    }
    return hash;
}

/// Numbers as little-endian bytes.
class Writer {
public:
    template <class Number>
    void Put(Number number) {
        for (std::size_t i = 0; i < sizeof(Number); ++i) {
            bytes_.push_back(static_cast<char>(number >> (8 * i) & 0xffU));
        }
    }

    void PutFloat(float number) { Put(std::bit_cast<std::uint32_t>(number)); }

    /// Seven bits in a byte, the lowest first; a byte with another after it has its highest bit.
    void PutCount(std::uint64_t count) {
        while (count >= 0x80U) {
            bytes_.push_back(static_cast<char>((count & 0x7fU) | 0x80U));
            count >>= 7U;
        }
        bytes_.push_back(static_cast<char>(count));
    }

    template <class Sum>
    void PutSum(const Sum& sum) {
        const auto canonical = sum.Canonical();
        PutCount(canonical.digits.size() * 2 + (canonical.isNegative ? 1 : 0));
        if (!canonical.digits.empty()) {
            PutCount(canonical.first);
        }
        for (const std::uint32_t digit : canonical.digits) {
            Put(digit);
        }
    }

    template <std::size_t N>
    void PutSums(const std::array<ExactSum, N>& sums) {
        for (const ExactSum& sum : sums) {
            PutSum(sum);
        }
    }

    /// Counts that are not 0, each after the number of places since the last.
    template <class Items, class IsEmpty, class PutItem>
    void PutSparse(const Items& items, const IsEmpty& isEmpty, const PutItem& putItem) {
        PutCount(static_cast<std::uint64_t>(std::count_if(
            items.begin(), items.end(), [&isEmpty](const auto& item) { return !isEmpty(item); })));
        std::size_t next = 0;
        for (std::size_t place = 0; place < items.size(); ++place) {
            if (!isEmpty(items[place])) {
                PutCount(place - next);
                putItem(items[place]);
                next = place + 1;
            }
        }
    }

    void PutCounts(const std::vector<std::uint64_t>& counts) {
        PutSparse(
            counts, [](std::uint64_t count) { return count == 0; },
            [this](std::uint64_t count) { PutCount(count); });
    }

    void PutBytes(std::string_view bytes) { bytes_ += bytes; }

    [[nodiscard]] std::string& Bytes() { return bytes_; }

private:
    std::string bytes_;
};

/// The inverse of Writer. After the first fault everything reads as 0.
class Reader {
public:
    explicit Reader(std::string_view bytes)
        : bytes_(bytes) {}

    [[nodiscard]] bool HasFailed() const { return hasFailed_; }

    [[nodiscard]] bool IsAtEnd() const { return !hasFailed_ && bytes_.empty(); }

    void Require(bool holds) { hasFailed_ = hasFailed_ || !holds; }

    template <class Number>
    [[nodiscard]] Number Get() {
        Require(bytes_.size() >= sizeof(Number));
        if (hasFailed_) {
            return 0;
        }
        std::uint64_t number = 0;
        for (std::size_t i = 0; i < sizeof(Number); ++i) {
            number |= std::uint64_t{static_cast<unsigned char>(bytes_[i])} << (8 * i);
        }
        bytes_.remove_prefix(sizeof(Number));
        return static_cast<Number>(number);
    }

    [[nodiscard]] float GetFloat() { return std::bit_cast<float>(Get<std::uint32_t>()); }

    [[nodiscard]] std::uint64_t GetCount() {
        std::uint64_t count = 0;
        for (unsigned shift = 0;; shift += 7) {
            const std::uint64_t byte = Get<std::uint8_t>();
            // The shortest form only, so that a summary has one form.
            Require(shift < 63 || byte <= 1);
            Require(byte != 0 || shift == 0);
            if (hasFailed_) {
                return 0;
            }
            count |= (byte & 0x7fU) << shift;
            if (byte < 0x80U) {
                return count;
            }
        }
    }

    template <class Sum>
    void GetSum(Sum& sum) {
        const std::uint64_t head = GetCount();
        Require(head / 2 <= bytes_.size() / sizeof(std::uint32_t));
        if (hasFailed_) {
            return;
        }
        typename Sum::Digits canonical;
        canonical.isNegative = head % 2 != 0;
        canonical.digits.resize(head / 2);
        const std::uint64_t first = canonical.digits.empty() ? 0 : GetCount();
        Require(first <= ExactSum::kLastPlace);
        canonical.first = static_cast<std::uint32_t>(first);
        std::generate(canonical.digits.begin(), canonical.digits.end(),
                      [this] { return Get<std::uint32_t>(); });
        const auto found = hasFailed_ ? std::nullopt : Sum::OfDigits(canonical);
        Require(found.has_value());
        if (found) {
            sum = *found;
        }
    }

    template <std::size_t N>
    void GetSums(std::array<ExactSum, N>& sums) {
        for (ExactSum& sum : sums) {
            GetSum(sum);
        }
    }

    template <class Items, class GetItem>
    void GetSparse(Items& items, const GetItem& getItem) {
        std::uint64_t left = GetCount();
        std::uint64_t place = 0;
        while (left-- > 0 && !hasFailed_) {
            const std::uint64_t skipped = GetCount();
            Require(skipped < items.size() && place + skipped < items.size());
            if (!hasFailed_) {
                place += skipped;
                getItem(items[place++]);
            }
        }
    }

    void GetCounts(std::vector<std::uint64_t>& counts) {
        GetSparse(counts, [this](std::uint64_t& count) {
            count = GetCount();
            Require(count > 0);
        });
    }

private:
    std::string_view bytes_;
    bool hasFailed_ = false;
};

void PutMoments(const MomentSums& sums, Writer& writer) {
    writer.PutSums(sums.products);
    writer.PutSums(sums.downward);
    writer.PutSums(sums.upward);
    writer.PutSums(sums.azimuths);
}

void GetMoments(Reader& reader, MomentSums& sums) {
    reader.GetSums(sums.products);
    reader.GetSums(sums.downward);
    reader.GetSums(sums.upward);
    reader.GetSums(sums.azimuths);
}

/// The total of some counts; nothing where it is above `most`.
std::optional<std::uint64_t> TotalOf(const std::vector<std::uint64_t>& counts, std::uint64_t most) {
    std::uint64_t total = 0;
    for (const std::uint64_t count : counts) {
        if (count > most - total) {
            return std::nullopt;
        }
        total += count;
    }
    return total;
}

/// Whether the parts fit each other.
bool AreConsistent(const RowSummary::Parts& parts) {
    constexpr std::uint64_t kMostRows = std::uint64_t{1} << 62U;
    const auto rows = TotalOf(parts.cells, kMostRows);
    const auto numbers = rows ? TotalOf(parts.numbers.bins, *rows) : std::nullopt;
    if (!rows || !numbers || *numbers != parts.numbers.count || parts.rowsWithDecimals > *rows) {
        return false;
    }
    const NumberSummary& held = parts.numbers;
    const bool isRange = std::isfinite(held.least) && std::isfinite(held.greatest)
                         && held.least <= held.greatest
                         && (held.count > 0 || (held.least == 0 && held.greatest == 0));
    if (!isRange) {
        return false;
    }
    for (std::size_t cell = 0; cell < parts.weights.size(); ++cell) {
        const auto weight = parts.weights[cell].Canonical();
        if (weight.isNegative || (parts.cells[cell] == 0 && !weight.digits.empty())) {
            return false;
        }
    }
    return true;
}

std::optional<RowSummary::Parts> PartsOf(Reader& reader) {
    const auto primary = reader.Get<std::uint8_t>();
    const auto weighted = reader.Get<std::uint8_t>();
    reader.Require(primary >= kDirections && primary <= kPrimaryLine && weighted <= 1);
    RowSummary::Parts parts =
        RowSummary({static_cast<std::int16_t>(primary), weighted == 1}).AllParts();
    parts.lines = {reader.GetCount(), reader.GetCount(), reader.GetCount()};
    reader.GetCounts(parts.cells);
    parts.rowsWithDecimals = reader.GetCount();
    GetMoments(reader, parts.moments);
    parts.numbers.count = reader.GetCount();
    parts.numbers.least = reader.GetFloat();
    parts.numbers.greatest = reader.GetFloat();
    reader.GetSum(parts.numbers.sum);
    reader.GetSum(parts.numbers.squares);
    reader.GetCounts(parts.numbers.bins);
    if (parts.kind.isWeighted) {
        reader.GetSparse(parts.weights, [&reader](FloatSum& weight) { reader.GetSum(weight); });
        GetMoments(reader, parts.weightedMoments);
    }
    return reader.IsAtEnd() && AreConsistent(parts) ? std::optional(std::move(parts))
                                                    : std::nullopt;
}

} // namespace

bool IsSummarySignature(std::string_view bytes) {
    return bytes.starts_with(kSignature);
}

std::string SummaryBytes(const RowSummary& summary) {
    const RowSummary::Parts parts = summary.AllParts();
    Writer writer;
    writer.PutBytes(kSignature);
    writer.Put(kVersion);
    writer.Put(static_cast<std::uint8_t>(parts.kind.primary));
    writer.Put(static_cast<std::uint8_t>(parts.kind.isWeighted ? 1 : 0));
    writer.PutCount(parts.lines.read);
    writer.PutCount(parts.lines.blank);
    writer.PutCount(parts.lines.invalid);
    writer.PutCounts(parts.cells);
    writer.PutCount(parts.rowsWithDecimals);
    PutMoments(parts.moments, writer);
    writer.PutCount(parts.numbers.count);
    writer.PutFloat(parts.numbers.least);
    writer.PutFloat(parts.numbers.greatest);
    writer.PutSum(parts.numbers.sum);
    writer.PutSum(parts.numbers.squares);
    writer.PutCounts(parts.numbers.bins);
    if (parts.kind.isWeighted) {
        writer.PutSparse(
            parts.weights, [](const FloatSum& weight) { return weight.Canonical().digits.empty(); },
            [&writer](const FloatSum& weight) { writer.PutSum(weight); });
        PutMoments(parts.weightedMoments, writer);
    }
    writer.Put(ChecksumOf(writer.Bytes()));
    return std::move(writer.Bytes());
}

Result<RowSummary> SummaryOfBytes(std::string_view bytes) {
    if (!IsSummarySignature(bytes)) {
        return Failure{kNoSummary};
    }
    const std::size_t head = kSignature.size() + sizeof(kVersion);
    const std::size_t tail = sizeof(std::uint64_t);
    if (bytes.size() < head + tail) {
        return Failure{kDamaged};
    }
    if (Reader(bytes.substr(kSignature.size())).Get<std::uint32_t>() != kVersion) {
        return Failure{kNewer};
    }
    const std::string_view held = bytes.substr(0, bytes.size() - tail);
    if (Reader(bytes.substr(held.size())).Get<std::uint64_t>() != ChecksumOf(held)) {
        return Failure{kDamaged};
    }
    Reader reader(held.substr(head));
    std::optional<RowSummary::Parts> parts = PartsOf(reader);
    if (!parts) {
        return Failure{kDamaged};
    }
    return RowSummary::OfParts(std::move(*parts));
}

Result<RowSummary> ReadSummaryFile(const std::string& path) {
    std::error_code error;
    const std::uintmax_t size = std::filesystem::file_size(path, error);
    std::ifstream file(path, std::ios::binary);
    if (error || !file) {
        return Failure{"It cannot be opened."};
    }
    if (size > kLargestFile) {
        return Failure{kNoSummary};
    }
    std::string bytes(size, '\0');
    if (!file.read(bytes.data(), static_cast<std::streamsize>(size))) {
        return Failure{"It cannot be read."};
    }
    return SummaryOfBytes(bytes);
}

} // namespace quandrel
