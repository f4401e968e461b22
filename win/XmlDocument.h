#pragma once
#include <windows.h>
#include <msxml.h>
#include <wrl/client.h>

#include <optional>
#include <string>

#include "win/XmlAttribute.h"

// XML documents, read with the system's library.
namespace win {

using XmlDocument = Microsoft::WRL::ComPtr<IXMLDOMDocument>;
using XmlNode = Microsoft::WRL::ComPtr<IXMLDOMNode>;
using XmlNodeList = Microsoft::WRL::ComPtr<IXMLDOMNodeList>;

// Starts loading the document in the file; returns null if the file is missing or IsSafeXml rejects
// it.
XmlDocument StartLoadingXml(const std::string& path);

// The state of a document that is being loaded. Loading may need messages to be handled.
enum class XmlState { Loading, Loaded, Failed };
XmlState StateOf(const XmlDocument& document);

// Loads the document in the file; handles messages meanwhile. Returns null if the file is missing,
// not well-formed, or has a document type declaration. External references are not followed.
XmlDocument LoadXmlFile(const std::string& path);

// Returns the nodes of a selection path in document order; null on failure. Prefixes are those
// written in the document.
XmlNodeList SelectNodes(const XmlDocument& document, const char* path);

// Returns the next node of the list; null after the last one and for a null list.
XmlNode NextNode(const XmlNodeList& list);

// Returns a node's name with its prefix; empty on failure.
std::string NodeName(const XmlNode& node);

// Returns the attributes of an element; none on failure.
XmlAttributes NodeAttributes(const XmlNode& node);

// Returns the whole document in UTF-8; nullopt on failure.
std::optional<std::string> DocumentUtf8(const XmlDocument& document);

// Return a node's local name and text; empty on failure.
std::string BaseName(const XmlNode& node);
std::string NodeText(const XmlNode& node);

}  // namespace win
