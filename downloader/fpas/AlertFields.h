#pragma once
#include <string>
#include <string_view>

#include "downloader/fpas/Alert.h"

// The texts of an alert, by the elements that hold them. They are read and packed by these tables.
namespace fpas {

template <class Owner>
struct Field {
    std::string_view name;
    std::string Owner::*text;
};

inline constexpr Field<Alert> kAlertFields[] = {
    {"identifier", &Alert::identifier}, {"sender", &Alert::sender}, {"sent", &Alert::sent},
    {"status", &Alert::status},         {"msgType", &Alert::type},  {"scope", &Alert::scope},
    {"references", &Alert::references},
};

inline constexpr Field<Info> kInfoFields[] = {
    {"language", &Info::language},
    {"event", &Info::event},
    {"urgency", &Info::urgency},
    {"severity", &Info::severity},
    {"certainty", &Info::certainty},
    {"effective", &Info::effective},
    {"onset", &Info::onset},
    {"expires", &Info::expires},
    {"senderName", &Info::senderName},
    {"headline", &Info::headline},
    {"description", &Info::description},
    {"instruction", &Info::instruction},
};

// The elements that may be repeated, whose texts are joined.
inline constexpr Field<Info> kListFields[] = {
    {"category", &Info::categories},
    {"responseType", &Info::responses},
};

inline constexpr Field<Info> kParameters[] = {
    {"awareness_level", &Info::awarenessLevel},
    {"awareness_type", &Info::awarenessType},
};

// The texts that no single element holds.
inline constexpr Field<Info> kOtherFields[] = {
    {"eventCode", &Info::eventCodes},
    {"area", &Info::areaKey},
};

}  // namespace fpas
