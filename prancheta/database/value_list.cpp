// SPDX-License-Identifier: MIT
// Typed lists and texts on the heap that `free` serves, because modules free them with it.
#include "prancheta/database/value_list.h"

#include <algorithm>
#include <cstdarg>
#include <cstdlib>
#include <cstring>
#include <cwchar>
#include <iterator>
#include <new>

#include "acutmem.h"

using prancheta::ListBuilder;
using prancheta::ValueKind;

namespace {

struct CodeRange {
    int first;
    int last;
    ValueKind kind;
};

const CodeRange kCodeRanges[] = {
    {-5, -5, ValueKind::Name},
    {-4, -4, ValueKind::Text},
    {-3, -3, ValueKind::None},
    {-2, -1, ValueKind::Name},
    {0, 9, ValueKind::Text},
    {10, 18, ValueKind::Point},
    {19, 59, ValueKind::Real},
    {60, 79, ValueKind::Int16},
    {90, 99, ValueKind::Int32},
    {100, 109, ValueKind::Text},
    {110, 112, ValueKind::Point},
    {113, 149, ValueKind::Real},
    {160, 169, ValueKind::Int32},
    {170, 179, ValueKind::Int16},
    {210, 213, ValueKind::Point},
    {214, 239, ValueKind::Real},
    {270, 299, ValueKind::Int16},
    {300, 309, ValueKind::Text},
    {310, 319, ValueKind::Binary},
    {320, 329, ValueKind::Text},
    {330, 369, ValueKind::Name},
    {370, 389, ValueKind::Int16},
    {390, 399, ValueKind::Text},
    {400, 409, ValueKind::Int16},
    {410, 419, ValueKind::Text},
    {420, 429, ValueKind::Int32},
    {430, 439, ValueKind::Text},
    {440, 459, ValueKind::Int32},
    {460, 469, ValueKind::Real},
    {470, 489, ValueKind::Text},
    {999, 1003, ValueKind::Text},
    {1004, 1004, ValueKind::Binary},
    {1005, 1005, ValueKind::Text},
    {1010, 1013, ValueKind::Point},
    {1014, 1059, ValueKind::Real},
    {1060, 1070, ValueKind::Int16},
    {1071, 1071, ValueKind::Int32},
    {RTNONE, RTNONE, ValueKind::None},
    {RTREAL, RTREAL, ValueKind::Real},
    {RTPOINT, RTPOINT, ValueKind::Point},
    {RTSHORT, RTSHORT, ValueKind::Int16},
    {RTANG, RTANG, ValueKind::Real},
    {RTSTR, RTSTR, ValueKind::Text},
    {RTENAME, RTPICKS, ValueKind::Name},
    {RTORINT, RTORINT, ValueKind::Real},
    {RT3DPOINT, RT3DPOINT, ValueKind::Point},
    {RTLONG, RTLONG, ValueKind::Int32},
    {RTVOID, RTVOID, ValueKind::None},
    {RTLB, RTNIL, ValueKind::None},
    {RTDXF0, RTDXF0, ValueKind::Text},
    {RTT, RTT, ValueKind::None},
    {RTRESBUF, RTRESBUF, ValueKind::List},
};

ACHAR* newText(std::wstring_view text) {
    auto* copy = static_cast<ACHAR*>(std::malloc((text.size() + 1) * sizeof(ACHAR)));
    if (copy == nullptr) return nullptr;
    if (!text.empty()) std::wmemcpy(copy, text.data(), text.size());
    copy[text.size()] = L'\0';
    return copy;
}

/// Takes the value of one pair from the argument list; false for a type that no list can hold.
bool takeArgument(resbuf& item, va_list* arguments) {
    switch (prancheta::kindOfValue(item.restype)) {
        case ValueKind::None:
            return true;
        case ValueKind::Text: {
            const ACHAR* text = va_arg(*arguments, const ACHAR*);
            item.resval.rstring = newText(text != nullptr ? text : L"");
            return true;
        }
        case ValueKind::Real:
            item.resval.rreal = va_arg(*arguments, double);
            return true;
        case ValueKind::Point: {
            const double* p = va_arg(*arguments, const double*);
            for (int i = 0; i < (item.restype == RTPOINT ? 2 : 3); ++i)
                item.resval.rpoint[i] = p[i];
            return true;
        }
        case ValueKind::Int16:
            item.resval.rint = static_cast<short>(va_arg(*arguments, int));
            return true;
        case ValueKind::Int32:
            item.resval.rlong = va_arg(*arguments, int);
            return true;
        case ValueKind::Name:
            ads_name_set(va_arg(*arguments, const std::intptr_t*), item.resval.rlname);
            return true;
        default:
            return false;
    }
}

}  // namespace

namespace prancheta {

ValueKind kindOfValue(int type) {
    for (const CodeRange& range : kCodeRanges)
        if (type >= range.first && type <= range.last) return range.kind;
    return ValueKind::Unknown;
}

resbuf* newTextItem(int type, std::wstring_view text) {
    resbuf* item = acutNewRb(type);
    item->resval.rstring = newText(text);
    return item;
}

ListOwner copyList(const resbuf* list) {
    ListBuilder copy;
    for (; list != nullptr; list = list->rbnext) {
        resbuf* item = acutNewRb(list->restype);
        item->resval = list->resval;
        const ValueKind kind = kindOfValue(list->restype);
        if (kind == ValueKind::Text && list->resval.rstring != nullptr)
            item->resval.rstring = newText(list->resval.rstring);
        if (kind == ValueKind::Binary && list->resval.rbinary.buf != nullptr) {
            const auto size = static_cast<std::size_t>(list->resval.rbinary.clen);
            item->resval.rbinary.buf = static_cast<char*>(std::malloc(size + 1));
            std::memcpy(item->resval.rbinary.buf, list->resval.rbinary.buf, size);
        }
        copy.add(item);
    }
    return ListOwner(copy.release());
}

}  // namespace prancheta

Acad::ErrorStatus acutNewString(const ACHAR* from, ACHAR*& to) {
    to = from != nullptr ? newText(from) : nullptr;
    return from != nullptr && to == nullptr ? Acad::eOutOfMemory : Acad::eOk;
}

void acutDelString(ACHAR*& text) {
    std::free(text);
    text = nullptr;
}

Acad::ErrorStatus acutUpdString(const ACHAR* from, ACHAR*& to) {
    ACHAR* copy = nullptr;
    const Acad::ErrorStatus es = acutNewString(from, copy);
    if (es != Acad::eOk) return es;
    std::free(to);
    to = copy;
    return Acad::eOk;
}

resbuf* acutNewRb(int type) {
    // Not calloc: items come and go by the dozen, and it does without the freed ones at hand.
    void* const memory = std::malloc(sizeof(resbuf));
    if (memory == nullptr) return nullptr;
    auto* const item = new (memory) resbuf{nullptr, static_cast<short>(type), {}};
    std::fill_n(item->resval.rpoint, 3, 0.0);  // the longest member: all of it is zero
    return item;
}

int acutRelRb(resbuf* list) {
    while (list != nullptr) {
        const ValueKind kind = prancheta::kindOfValue(list->restype);
        if (kind == ValueKind::Text) std::free(list->resval.rstring);
        if (kind == ValueKind::Binary) std::free(list->resval.rbinary.buf);
        std::free(std::exchange(list, list->rbnext));
    }
    return RTNORM;
}

resbuf* acutBuildList(int rtype, ...) {
    va_list arguments;
    va_start(arguments, rtype);
    ListBuilder list;
    bool good = true;
    for (int type = rtype; good && type != RTNONE && type != 0; type = va_arg(arguments, int)) {
        // Group code 0 would end the list, so it is given by a name of its own.
        resbuf* item = acutNewRb(type == RTDXF0 ? 0 : type);
        list.add(item);
        good = takeArgument(*item, &arguments);
        if (!good) break;
    }
    va_end(arguments);
    return good ? list.release() : nullptr;
}
