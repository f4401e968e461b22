#pragma once
#include <cstddef>
#include <memory>
#include <string>
#include <string_view>

// A small XML document from a server, as a tree. The library that parses it is only used here.
namespace feed {

inline constexpr std::size_t kLongestDocument = std::size_t{4} << 20;

// An element, or none. Valid as long as its tree.
class XmlElement {
  public:
    explicit XmlElement(const void* node = nullptr) : node_(node) {}
    explicit operator bool() const { return node_ != nullptr; }

    // Returns the name without a namespace's prefix.
    std::string_view Name() const;

    // Returns the first element inside this one, and the next sibling; null if there is none.
    XmlElement FirstChild() const;
    XmlElement Next() const;

    // Returns the text directly inside, at most `longest` bytes of it, without white space at its
    // ends. Its encoding is not validated: a character reference can create what UTF-8 does not
    // allow.
    std::string Text(std::size_t longest = kLongestDocument) const;

    // Returns the first piece of that text as it is written. Comments, for example, divide a text.
    std::string_view FirstText() const;

  private:
    const void* node_;
};

// Parses a document. It must be in UTF-8 and well-formed, at most kLongestDocument, with at most 32
// levels and 250,000 elements. Document types are rejected, so that no entity can be declared;
// references to undeclared ones stay as they are written, and nothing outside the document is ever
// read.
class XmlTree {
  public:
    explicit XmlTree(std::string document);
    ~XmlTree();

    // Returns the outermost element; none if the document was rejected.
    XmlElement Root() const;

  private:
    struct Parsed;
    std::unique_ptr<Parsed> parsed_;
};

}  // namespace feed
