#include "downloader/fpas/PackedAlert.h"

#include <charconv>
#include <type_traits>

#include "downloader/fpas/AlertFields.h"
#include "win/Text.h"

namespace fpas {
namespace {

constexpr std::string_view kPackHeader = "skyvane-cap-1;";

// Calls `act` for each text of the owner in the tables, in the order in which they are packed.
template <class Act, class Owner, std::size_t... sizes>
void ForEachText(const Act& act, Owner& owner,
                 const Field<std::remove_const_t<Owner>> (&... tables)[sizes]) {
    const auto visit = [&](const auto& table) {
        for (const auto& field : table) act(owner.*field.text);
    };
    (visit(tables), ...);
}

// A number is its digits and ";"; a text is its length as a number, then its bytes.
class Packer {
  public:
    explicit Packer(std::string& packed) : packed_(packed) {}
    void Pack(std::size_t number) {
        packed_.append(win::Decimal(static_cast<long long>(number))).append(";");
    }
    void Pack(const std::string& text) {
        Pack(text.size());
        packed_ += text;
    }
    void Pack(const std::vector<std::string>& texts) {
        Pack(texts.size());
        for (const std::string& text : texts) Pack(text);
    }

  private:
    std::string& packed_;
};

// Reads what Packer wrote. After damage every number is 0 and every text empty.
class Unpacker {
  public:
    explicit Unpacker(std::string_view rest) : rest_(rest) {}
    bool IsWhole() const { return isSound_ && rest_.empty(); }
    std::size_t Count() {
        std::size_t number = 0;
        const auto [end, error] =
            std::from_chars(rest_.data(), rest_.data() + rest_.size(), number);
        const auto length = static_cast<std::size_t>(end - rest_.data());
        Require(error == std::errc() && rest_.substr(length).starts_with(';') &&
                number < rest_.size() - length);
        if (isSound_) rest_.remove_prefix(length + 1);
        return isSound_ ? number : 0;
    }
    void Unpack(std::string& text) {
        const std::size_t length = Count();
        text = rest_.substr(0, length);
        rest_.remove_prefix(length);
        Require(win::IsUtf8(text));
    }
    void Unpack(std::vector<std::string>& texts) {
        UnpackEach(texts, [&](std::string& text) { Unpack(text); });
    }
    // The list grows item by item: a damaged count must not allocate memory.
    template <class Item, class Read>
    void UnpackEach(std::vector<Item>& items, const Read& read) {
        for (std::size_t left = Count(); left > 0 && isSound_; --left) read(items.emplace_back());
    }

  private:
    void Require(bool isSound) {
        if (isSound) return;
        isSound_ = false;
        rest_ = {};
    }

    std::string_view rest_;
    bool isSound_ = true;
};

}  // namespace

std::string PackAlert(const Alert& alert) {
    std::string packed(kPackHeader);
    Packer packer(packed);
    const auto pack = [&](const std::string& text) { packer.Pack(text); };
    ForEachText(pack, alert, kAlertFields);
    packer.Pack(alert.infos.size());
    for (const Info& info : alert.infos) {
        ForEachText(pack, info, kInfoFields, kListFields, kParameters, kOtherFields);
        packer.Pack(info.areas.size());
        for (const Area& area : info.areas) {
            packer.Pack(area.description);
            packer.Pack(area.polygons);
            packer.Pack(area.circles);
        }
    }
    return packed;
}

std::optional<Alert> UnpackAlert(std::string_view text) {
    if (!text.starts_with(kPackHeader)) return std::nullopt;
    Unpacker unpacker(text.substr(kPackHeader.size()));
    const auto unpack = [&](std::string& field) { unpacker.Unpack(field); };
    Alert alert;
    ForEachText(unpack, alert, kAlertFields);
    unpacker.UnpackEach(alert.infos, [&](Info& info) {
        ForEachText(unpack, info, kInfoFields, kListFields, kParameters, kOtherFields);
        unpacker.UnpackEach(info.areas, [&](Area& area) {
            unpacker.Unpack(area.description);
            unpacker.Unpack(area.polygons);
            unpacker.Unpack(area.circles);
        });
    });
    if (!unpacker.IsWhole()) return std::nullopt;
    return alert;
}

}  // namespace fpas
