#pragma once
#include <windows.h>
#include <msxml.h>
#include <wrl/client.h>

#include <optional>
#include <string>

#include "win/XmlAttribute.h"

// The XML document of the Windows platform, as the feed readers use it.
namespace win {

using XmlDocument = Microsoft::WRL::ComPtr<IXMLDOMDocument>;
using XmlNode = Microsoft::WRL::ComPtr<IXMLDOMNode>;
using XmlNodeList = Microsoft::WRL::ComPtr<IXMLDOMNodeList>;

// Starts loading the document in the file; null when the file is missing or cannot be a document.
XmlDocument StartLoadingXml(const std::string& path);

// How far that has come. Loading may go on in the background; messages carry it along.
enum class XmlState { Loading, Loaded, Failed };
XmlState StateOf(const XmlDocument& document);

// The document in the file; null when it is missing, not well-formed, or has a document type
// declaration. Nothing that the document refers to is opened. Lets messages run while it loads.
XmlDocument LoadXmlFile(const std::string& path);

// The nodes of a selection path, in document order; null when there are none to be had. Prefixes
// are those written in the document.
XmlNodeList SelectNodes(const XmlDocument& document, const char* path);

// The next node of the list, null behind the last.
XmlNode NextNode(const XmlNodeList& list);

// A node's name as written, with its prefix; empty on an error.
std::string NodeName(const XmlNode& node);

// The attributes of an element; none on an error.
XmlAttributes NodeAttributes(const XmlNode& node);

// The whole document as text, in UTF-8 whatever the process's code page; nothing on an error.
std::optional<std::string> DocumentUtf8(const XmlDocument& document);

// A node's local name and text; empty on an error.
std::string BaseName(const XmlNode& node);
std::string NodeText(const XmlNode& node);

}  // namespace win
