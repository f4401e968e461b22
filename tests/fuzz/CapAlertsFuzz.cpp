#include "downloader/feed/Paragraphs.h"
#include "downloader/fpas/Alerts.h"
#include "downloader/fpas/PackedAlert.h"
#include "tests/fuzz/Elements.h"
#include "win/Text.h"
#include "win/XmlGuard.h"

// Whatever the documents and the cache contain, the answer is valid and names every unreadable
// document, and a packed alert is unpacked unchanged. A form feed separates documents.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string text(reinterpret_cast<const char*>(data), size);
    fpas::Answer answer;
    std::size_t unreadable = 0;
    for (const std::string& document : win::Split(text, "\f")) {
        auto alert = fpas::ReadAlert(document);
        unreadable += alert ? 0 : 1;
        if (alert) {
            const std::string packed = fpas::PackAlert(*alert);
            const auto unpacked = fpas::UnpackAlert(packed);
            fuzz::Require(unpacked && fpas::PackAlert(*unpacked) == packed);
            fuzz::Require(!fpas::UnpackAlert(packed.substr(0, packed.size() / 2)));
        }
        answer.documents.push_back({win::Decimal(unreadable), "https://h/", std::move(alert)});
    }
    if (auto kept = fpas::UnpackAlert(text))
        answer.documents.push_back({"kept", "https://h/", std::move(kept)});
    constexpr std::int64_t kNow = 1741000000;
    feed::AlertMemory memory;
    const auto build = [&](const char* language) {
        return fpas::BuildAlertDocument(answer, {"g1", {22.1, 113.55}}, language, memory, kNow);
    };
    const std::string xml = build("de-CH");
    fuzz::Require(win::IsUtf8(xml) && win::IsSafeXml(xml));
    for (const char c : xml)
        fuzz::Require(static_cast<unsigned char>(c) >= 0x20 || c == '\n' || c == '\t');
    for (std::size_t at = 0; (at = xml.find("Unreadable alert<", at)) != std::string::npos; ++at)
        unreadable -= unreadable > 0 ? 1 : 0;
    fuzz::Require(unreadable == 0);
    // With the memory, the same answer produces the same document again.
    fuzz::Require(build("de-CH") == xml);
    build("pt");
    return 0;
}
