#include "downloader/feed/XmlTree.h"

#include <algorithm>
#include <csetjmp>
#include <cstring>
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

constexpr std::size_t kLargest = std::size_t{4} << 20;
constexpr int kDeepest = 32;
constexpr int kMostElements = 250'000;
constexpr char kWhite[] = " \t\r\n";

// Returns the position after `end`, searched from `from` on; npos if it is missing.
std::size_t After(std::string_view text, std::string_view end, std::size_t from) {
    const std::size_t found = text.find(end, from);
    return found == std::string_view::npos ? found : found + end.size();
}

// Returns the position after the tag whose name begins at `at`. Values may contain ">".
std::size_t AfterTag(std::string_view text, std::size_t at) {
    while ((at = text.find_first_of(">\"'", at)) != std::string_view::npos) {
        if (text[at] == '>') return at + 1;
        at = After(text, text.substr(at, 1), at + 1);
        if (at == std::string_view::npos) break;
    }
    return std::string_view::npos;
}

// Whether the document stays within the bounds and declares nothing. The parser recurses into
// elements, so that this comes first. It need not be correct where the parser fails.
bool IsWithinBounds(std::string_view text) {
    int depth = 0;
    int elements = 0;
    for (std::size_t at = 0; (at = text.find('<', at)) != std::string_view::npos;) {
        const std::string_view rest = text.substr(at + 1, 8);
        if (rest.starts_with("!--")) {
            at = After(text, "-->", at + 4);
        } else if (rest.starts_with("![CDATA[")) {
            at = After(text, "]]>", at);
        } else if (rest.starts_with('!')) {
            return false;
        } else if (rest.starts_with('?')) {
            at = After(text, "?>", at);
        } else if (rest.starts_with('/')) {
            --depth;
            ++at;
        } else {
            at = AfterTag(text, at + 1);
            if (++elements > kMostElements) return false;
            if (at == std::string_view::npos || text[at - 2] == '/') continue;
            if (++depth > kDeepest) return false;
        }
        if (at == std::string_view::npos) return false;
    }
    return true;
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

// Parses in place. Elements carry no values of their own: each piece of text is a node.
bool Parse(rapidxml::xml_document<char>& tree, char* text) {
    constexpr int kFlags =
        rapidxml::parse_no_element_values | rapidxml::parse_validate_closing_tags;
    if (setjmp(parseFailed) != 0) return false;
    tree.parse<kFlags>(text);
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
    // The parser takes a zero byte, which is also in each tag of UTF-16, for the end.
    if (document.size() > kLargest || document.find('\0') != std::string::npos ||
        !win::IsSafeXml(document) || HasOtherEncoding(document) || !IsWithinBounds(document))
        return;
    auto parsed = std::make_unique<Parsed>();
    parsed->document = std::move(document);
    if (Parse(parsed->tree, parsed->document.data())) parsed_ = std::move(parsed);
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
    std::string_view name(node->name(), node->name_size());
    name.remove_prefix(name.find(':') + 1);  // npos + 1 is 0
    return name;
}

XmlElement XmlElement::FirstChild() const {
    return XmlElement(NextElement(AsNode(node_)->first_node()));
}

XmlElement XmlElement::Next() const {
    return XmlElement(NextElement(AsNode(node_)->next_sibling()));
}

std::string XmlElement::Text() const {
    std::string text;
    for (const Node* node = AsNode(node_)->first_node(); node; node = node->next_sibling())
        if (node->type() == rapidxml::node_data || node->type() == rapidxml::node_cdata)
            text.append(node->value(), node->value_size());
    const std::size_t first = text.find_first_not_of(kWhite);
    if (first == std::string::npos) return {};
    text.erase(text.find_last_not_of(kWhite) + 1);
    text.erase(0, first);
    return text;
}

std::string_view XmlElement::FirstText() const {
    const Node* const node = AsNode(node_)->first_node();
    if (!node || node->type() == rapidxml::node_element) return {};
    return {node->value(), node->value_size()};
}

}  // namespace feed
