#include "downloader/feed/XmlTree.h"

#include <algorithm>
#include <csetjmp>
#include <utility>

#include "win/Text.h"
#include "win/XmlGuard.h"

#define RAPIDXML_NO_EXCEPTIONS
#include <rapidxml/rapidxml.hpp>

namespace {

// Where the parser's errors lead, which must not return to it. It has no objects to destroy.
std::jmp_buf parseFailed;

}  // namespace

void rapidxml::parse_error_handler(const char*, void*) {
    std::longjmp(parseFailed, 1);
}

namespace feed {
namespace {

using Node = rapidxml::xml_node<char>;

constexpr int kDeepest = 32;
constexpr int kMostElements = 250'000;

bool IsWhite(char c) {
    return c == ' ' || c == '\n' || c == '\r' || c == '\t';
}

// Returns the position of the next "<" at or after `at`, or the size. The numbers of polygons are
// most of a long document: after a few characters, whole blocks are compared, which the compiler
// does with vectors.
std::size_t FindTag(std::string_view text, std::size_t at) {
    constexpr std::size_t kBlock = 64;
    const auto findBefore = [&](std::size_t end) {
        while (at < end && text[at] != '<') ++at;
        return at < end;
    };
    if (findBefore(std::min(at + kBlock / 2, text.size()))) return at;
    for (; at + kBlock <= text.size(); at += kBlock) {
        const char* const block = text.data() + at;
        unsigned char isFound = 0;
        for (std::size_t i = 0; i < kBlock; ++i) isFound |= block[i] == '<';
        if (isFound) break;
    }
    findBefore(text.size());
    return at;
}

// Returns the position after `end`, searched from `from` on; npos if it is missing.
std::size_t After(std::string_view text, std::string_view end, std::size_t from) {
    const std::size_t found = text.find(end, from);
    return found == std::string_view::npos ? found : found + end.size();
}

// Returns the position after the start tag whose name begins at `at`; npos if it has no end. Just
// as for the parser, a quote begins a value only after "=", and the name may contain both.
std::size_t AfterTag(std::string_view text, std::size_t at) {
    while (at < text.size() && !IsWhite(text[at]) && text[at] != '/' && text[at] != '>') ++at;
    bool isValue = false;  // comes next
    for (; at < text.size(); ++at) {
        const char c = text[at];
        if (c == '>') return at + 1;
        if (isValue && (c == '"' || c == '\'')) {
            at = text.find(c, at + 1);
            if (at == std::string_view::npos) return at;
        }
        isValue = c == '=' || (isValue && IsWhite(c));
    }
    return std::string_view::npos;
}

// Returns the position after the comment, section or instruction that begins at `at`; npos if it
// has no end, or for a declaration.
std::size_t AfterDivider(std::string_view text, std::size_t at) {
    const std::string_view rest = text.substr(at);
    if (rest.starts_with("<?")) return After(text, "?>", at);
    if (rest.starts_with("<!--")) return After(text, "-->", at + 4);
    return rest.starts_with("<![CDATA[") ? After(text, "]]>", at) : std::string_view::npos;
}

// Properties of a document, found before it is parsed.
struct Survey {
    bool isWithinBounds = false;   // and declares nothing
    bool hasDividedTexts = false;  // by comments or elements, or in sections of their own
};

// Bounds the parser's recursion into elements. Its result does not matter if parsing fails.
Survey SurveyTags(std::string_view text) {
    Survey survey;
    int depth = 0;
    int elements = 0;
    for (std::size_t at = FindTag(text, 0); at < text.size(); at = FindTag(text, at)) {
        const char kind = at + 1 < text.size() ? text[at + 1] : 0;
        bool endsElement = kind == '/';
        if (kind == '!' || kind == '?') {
            survey.hasDividedTexts |= depth > 0;
            at = AfterDivider(text, at);
        } else if (kind == '/') {
            --depth;
            at = After(text, ">", at);
        } else {
            if (++elements > kMostElements) return survey;
            at = AfterTag(text, at + 1);
            endsElement = at != std::string_view::npos && text[at - 2] == '/';
            if (!endsElement && ++depth > kDeepest) return survey;
        }
        if (at == std::string_view::npos) return survey;
        if (!endsElement || depth <= 0) continue;
        while (at < text.size() && IsWhite(text[at])) ++at;
        survey.hasDividedTexts |= at < text.size() && text[at] != '<';
    }
    survey.isWithinBounds = true;
    return survey;
}

// Whether the XML declaration names another encoding than UTF-8, and the document makes use of it.
bool HasOtherEncoding(std::string_view text) {
    if (!text.starts_with("<?xml")) return false;
    const std::string head = win::AsciiLower(text.substr(0, text.find("?>")));
    const std::size_t at = head.find("encoding");
    if (at == std::string::npos || head.find("utf-8", at) != std::string::npos) return false;
    return std::any_of(text.begin(), text.end(),
                       [](char c) { return static_cast<unsigned char>(c) >= 0x80; });
}

// Parses in place. The pieces of a divided text become nodes; otherwise the element has its text as
// a value, which takes half the time and memory for short texts.
bool Parse(rapidxml::xml_document<char>& tree, char* text, bool hasDividedTexts) {
    constexpr int kPieces =
        rapidxml::parse_no_element_values | rapidxml::parse_validate_closing_tags;
    constexpr int kValues = rapidxml::parse_no_data_nodes | rapidxml::parse_validate_closing_tags;
    if (setjmp(parseFailed) != 0) return false;
    if (hasDividedTexts)
        tree.parse<kPieces>(text);
    else
        tree.parse<kValues>(text);
    return true;
}

const Node* NextElement(const Node* node) {
    while (node && node->type() != rapidxml::node_element) node = node->next_sibling();
    return node;
}

const Node* AsNode(const void* node) {
    return static_cast<const Node*>(node);
}

}  // namespace

struct XmlTree::Parsed {
    std::string document;
    rapidxml::xml_document<char> tree;
};

XmlTree::XmlTree(std::string document) {
    constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
    if (document.starts_with(kByteOrderMark)) document.erase(0, kByteOrderMark.size());
    if (document.size() > kLongestDocument || !win::IsSafeXml(document) ||
        HasOtherEncoding(document))
        return;
    const Survey survey = SurveyTags(document);
    if (!survey.isWithinBounds) return;
    std::unique_ptr<Parsed> parsed(new Parsed);  // without clearing its memory
    parsed->document = std::move(document);
    if (Parse(parsed->tree, parsed->document.data(), survey.hasDividedTexts))
        parsed_ = std::move(parsed);
}

XmlTree::~XmlTree() = default;

XmlElement XmlTree::Root() const {
    if (!parsed_) return XmlElement();
    const Node* const root = NextElement(parsed_->tree.first_node());
    const bool isOnly = root && !NextElement(root->next_sibling());
    return XmlElement(isOnly ? root : nullptr);
}

std::string_view XmlElement::Name() const {
    const Node* const node = AsNode(node_);
    const std::string_view name(node->name(), node->name_size());
    for (std::size_t at = 0; at < name.size(); ++at)
        if (name[at] == ':') return name.substr(at + 1);
    return name;
}

XmlElement XmlElement::FirstChild() const {
    return XmlElement(NextElement(AsNode(node_)->first_node()));
}

XmlElement XmlElement::Next() const {
    return XmlElement(NextElement(AsNode(node_)->next_sibling()));
}

std::string XmlElement::Text(std::size_t longest) const {
    std::string text;
    const auto append = [&](const rapidxml::xml_base<char>* piece) {
        text.append(piece->value(), std::min(piece->value_size(), longest - text.size()));
    };
    append(AsNode(node_));
    for (const Node* node = AsNode(node_)->first_node(); node; node = node->next_sibling())
        if (node->type() != rapidxml::node_element) append(node);
    return std::string(win::Trim(text, " \t\r\n"));
}

std::string_view XmlElement::FirstText() const {
    const Node* const node = AsNode(node_);
    const Node* const piece = node->value_size() == 0 ? node->first_node() : nullptr;
    if (!piece) return {node->value(), node->value_size()};
    if (piece->type() == rapidxml::node_element) return {};
    return {piece->value(), piece->value_size()};
}

}  // namespace feed
