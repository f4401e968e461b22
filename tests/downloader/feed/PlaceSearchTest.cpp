#include "downloader/feed/PlaceSearch.h"

#include <gtest/gtest.h>

#include "SmallGazetteer.h"
#include "downloader/feed/PlaceName.h"

namespace feed {
namespace {

using Texts = std::vector<std::string>;

TEST(FindPlaces, FindsPlacesByName) {
    const std::string bytes = SmallGazetteer();
    const auto gazetteer = OpenGazetteer(bytes);
    ASSERT_TRUE(gazetteer);
    struct Case {
        const char* text;
        Texts found;
        Scope scope = Scope::World;
    };
    const Texts springfields = {"65801 Springfield, Missouri", "62701 Springfield, Illinois",
                                "13468 Springfield Center, New York"};
    const Texts abroad = {"g8 Springfield, United Kingdom"};
    const std::string london = "g2643743 London, United Kingdom";
    const std::string londonOntario = "g6058560 London, Ontario, Canada";
    const std::string zurich = "g2657896 Zürich, Switzerland";
    const Texts newYork = {"10001 New York, New York"};
    const Case cases[] = {
        {" sPRINGfield ", springfields, Scope::UnitedStates},
        {"spring", springfields, Scope::UnitedStates},
        {"Springfield", abroad, Scope::Abroad},
        {"Springfield", {springfields[0], abroad[0], springfields[1], springfields[2]}},
        {"Springfield, IL", {springfields[1]}},
        {"Springfield Missouri", {springfields[0]}},
        {"Springfield, Missouri, USA", {springfields[0]}},
        {"Springfield, New", {springfields[2]}},
        {"Springfield New York", {springfields[2]}},
        {"Springfield, Ontario", {}},
        {"Springfield, u.k.", abroad},
        {"Saint Louis", {"63101 St. Louis, Missouri"}},
        {"OFALLON", {"63366 O'Fallon, Missouri"}},
        {"o\xE2\x80\x99 fallon, mo", {"63366 O'Fallon, Missouri"}},
        {"New York City", newYork},
        {"N.Y.C., NY", newYork},
        {"New York", newYork},
        {"winston salem", {"99999 Winston-Salem, Illinois"}},
        {"MAYAGÜEZ, pr", {"00680 Mayagüez, Puerto Rico"}},
        {"London", {london, londonOntario}},
        {"London, Ontario, Canada", {londonOntario}},
        {"london CA", {londonOntario}},
        {"Londres", {london}},
        {"Londre", {}},
        {"z", {zurich, "g6295532 Zürich (Kreis 3), Switzerland", "g5 Zug, Switzerland"}},
        {"ZURICH", {zurich, "g6295532 Zürich (Kreis 3), Switzerland"}},
        {"Zürich (Kreis 3)", {"g6295532 Zürich (Kreis 3), Switzerland"}},
        {"", {}},
        {" . ", {}},
    };
    for (const Case& c : cases) {
        Texts found;
        for (const Place& place : FindPlaces(*gazetteer, c.text, 50, c.scope))
            found.push_back(place.code + " " + std::string(place.name) + ", " + AreaOf(place));
        EXPECT_EQ(found, c.found) << c.text;
    }
    EXPECT_EQ(FindPlaces(*gazetteer, "s", 2, Scope::World).size(), 2u);
}

TEST(FoldName, RemovesCaseAndAccents) {
    for (const auto& [name, folded] : {std::pair{"Łódź", "lodz"},
                                       {"İstanbul", "istanbul"},
                                       {"SÃO PAULO", "saopaulo"},
                                       {"Nước Hai", "nuochai"},
                                       {"Gießen", "giessen"},
                                       {"Ærøskøbing", "aeroskobing"},
                                       {"Tai’an", "taian"},
                                       {"Sankt Gallen", "saintgallen"},
                                       {"ʻAjlūn", "ajlun"},
                                       {"Z\u0308urich", "zurich"},
                                       {"ОРЁЛ", "орел"},
                                       {"Θεσσαλονίκη", "θεσσαλονικη"},
                                       {"東京", "東京"},
                                       {"القاهرة", "القاهرة"},
                                       {"\xC5", "\xC5"},
                                       {"\xE1\xB8", "\xE1\xB8"}})
        EXPECT_EQ(FoldName(name), folded);
}

}  // namespace
}  // namespace feed
