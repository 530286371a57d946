// SPDX-License-Identifier: MIT
// Decoder of slide images.
//
// A record begins with a 16-bit word whose high byte is its kind. Offsets in the short records
// count from the "last point": the *from* point of a vector, the *to* point of a common-endpoint
// vector.
#include <bit>
#include <cstring>

#include "prancheta/slides/slide.h"

namespace prancheta::slides {
namespace {

constexpr std::string_view kSlideId("AutoCAD Slide\r\n\x1a\0", 17);
constexpr std::size_t kHeader = 31;
constexpr std::size_t kOldHeader = 34;
constexpr std::size_t kMaxVertices = 10;

enum Kind : unsigned {
    kLastVector = 0x7F,
    kOffsetVector = 0xFB,
    kEnd = 0xFC,
    kFill = 0xFD,
    kCommonEnd = 0xFE,
    kColor = 0xFF,
};

class Reader {
public:
    explicit Reader(std::string_view bytes) : m_bytes(bytes) {}

    Result<Slide> read() {
        if (!header()) return failure("não é um slide (cabeçalho inválido)");
        for (;;) {
            if (!has(2)) return failure("slide truncado: falta o registro de fim");
            const unsigned word = word16(m_at);
            const unsigned kind = word >> 8;
            const auto low = static_cast<std::int8_t>(word & 0xFF);
            if (kind == kEnd) break;
            const char* const error = record(kind, low);
            if (error != nullptr) return failure(error);
        }
        return std::move(m_slide);
    }

private:
    bool has(std::size_t count) const { return m_at + count <= m_bytes.size(); }
    unsigned byte(std::size_t at) const { return static_cast<unsigned char>(m_bytes[at]); }
    unsigned word16(std::size_t at) const {
        return m_bigEndian ? byte(at) << 8 | byte(at + 1) : byte(at) | byte(at + 1) << 8;
    }
    std::int16_t number(std::size_t at) const { return static_cast<std::int16_t>(word16(at)); }

    Error failure(const char* what) const {
        return {std::string(what) + " (posição " + std::to_string(m_at) + ")", {}, 0, 0};
    }

    bool header() {
        if (m_bytes.size() < kHeader || m_bytes.substr(0, kSlideId.size()) != kSlideId)
            return false;
        const unsigned level = byte(18);
        if (level == 2) {
            m_bigEndian = word16(29) == 0x3412;
            m_at = kHeader;
            std::uint32_t scaled = 0;
            for (std::size_t i = 4; i-- > 0;) scaled = scaled << 8 | byte(23 + i);
            m_slide.aspect = scaled / 1e7;
        } else if (level == 1 && m_bytes.size() >= kOldHeader) {
            // No test number: the end record at the very end of the file tells the byte order.
            m_bigEndian = byte(m_bytes.size() - 2) == kEnd && byte(m_bytes.size() - 1) == 0;
            m_at = kOldHeader;
            std::uint64_t bits = 0;
            for (std::size_t i = 0; i < 8; ++i)
                bits = bits << 8 | byte(m_bigEndian ? 23 + i : 30 - i);
            m_slide.aspect = std::bit_cast<double>(bits);
        } else {
            return false;
        }
        m_slide.width = number(19) + 1;
        m_slide.height = number(21) + 1;
        if (m_slide.width <= 0 || m_slide.height <= 0) return false;
        const double pixels = static_cast<double>(m_slide.width) / m_slide.height;
        if (!(m_slide.aspect > 0.0 && m_slide.aspect <= 10.0)) m_slide.aspect = pixels;
        return true;
    }

    /// Reads one record at m_at; null when it was understood.
    const char* record(unsigned kind, std::int8_t low) {
        if (kind <= kLastVector) return vector();
        switch (kind) {
            case kOffsetVector:
                return offsetVector(low);
            case kCommonEnd:
                return commonEnd(low);
            case kFill:
                return fill();
            case kColor:
                m_color = static_cast<std::uint8_t>(low);
                m_at += 2;
                return nullptr;
            default:
                return "slide com registro desconhecido";
        }
    }

    void stroke(Pixel from, Pixel to) { m_slide.elements.push_back({m_color, {from, to}}); }

    static Pixel moved(Pixel p, int dx, int dy) {
        return {static_cast<std::int16_t>(p.x + dx), static_cast<std::int16_t>(p.y + dy)};
    }

    const char* vector() {
        if (!has(8)) return "slide truncado: vetor incompleto";
        const Pixel from{number(m_at), number(m_at + 2)};
        stroke(from, {number(m_at + 4), number(m_at + 6)});
        m_last = from;
        m_at += 8;
        return nullptr;
    }

    const char* offsetVector(std::int8_t low) {
        if (!has(5)) return "slide truncado: vetor incompleto";
        const auto offset = [this](std::size_t i) {
            return static_cast<std::int8_t>(m_bytes[m_at + i]);
        };
        const Pixel from = moved(m_last, low, offset(2));
        stroke(from, moved(m_last, offset(3), offset(4)));
        m_last = from;
        m_at += 5;
        return nullptr;
    }

    const char* commonEnd(std::int8_t low) {
        if (!has(3)) return "slide truncado: vetor incompleto";
        const Pixel to = moved(m_last, low, static_cast<std::int8_t>(m_bytes[m_at + 2]));
        stroke(m_last, to);
        m_last = to;
        m_at += 3;
        return nullptr;
    }

    /// Vertices up to the second record with a negative y: the count in the first one is not
    /// reliable in files that are about.
    const char* fill() {
        Element polygon{m_color, {}};
        for (bool open = false;;) {
            if (!has(6) || word16(m_at) >> 8 != kFill) return "slide com polígono incompleto";
            const std::int16_t x = number(m_at + 2);
            const std::int16_t y = number(m_at + 4);
            m_at += 6;
            if (y < 0 && open) break;
            if (y < 0) {
                open = true;
                continue;
            }
            if (!open || polygon.points.size() == kMaxVertices)
                return "slide com polígono inválido";
            polygon.points.push_back({x, y});
        }
        if (polygon.points.size() >= 3) m_slide.elements.push_back(std::move(polygon));
        return nullptr;
    }

    std::string_view m_bytes;
    std::size_t m_at = 0;
    bool m_bigEndian = false;
    std::uint8_t m_color = 7;
    Pixel m_last;
    Slide m_slide;
};

}  // namespace

Result<Slide> readSlide(std::string_view bytes) { return Reader(bytes).read(); }

}  // namespace prancheta::slides
