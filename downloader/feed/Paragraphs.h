#pragma once
#include <string>
#include <string_view>

namespace feed {

// Appends a text whose sender broke it into lines of about 70 characters, with the lines of each
// paragraph joined, so that a phrase is not split; by a space, except in scripts that are written
// without spaces. Paragraphs are separated by an empty line, also from what `body` holds already;
// the items of a list ("* ", "- ") and the rows of a table keep lines of their own.
void AppendParagraphs(std::string& body, std::string_view text);

// Appends the text without white space and control characters, so that texts compare equal however
// their lines are broken.
void AppendWithoutSpaces(std::string& squeezed, std::string_view text);

}  // namespace feed
