#include "win/XmlDocument.h"

#include "win/CodePage.h"
#include "win/Com.h"
#include "win/Files.h"
#include "win/MessageLoop.h"
#include "win/XmlGuard.h"

namespace win {
namespace {

constexpr long kLoaded = 4;
constexpr DWORD kPollMilliseconds = 10;

// The file's bytes if they are safe, else null. The library reads these bytes and not the file,
// which may change after the check.
Microsoft::WRL::ComPtr<IStream> SafeBytesOf(const std::string& path) {
    const std::optional<std::string> bytes = ReadWholeFile(path);
    Microsoft::WRL::ComPtr<IStream> stream;
    if (!bytes || !IsSafeXml(*bytes) ||
        FAILED(late::CreateStreamOnHGlobal(nullptr, TRUE, &stream)) ||
        FAILED(stream->Write(bytes->data(), static_cast<ULONG>(bytes->size()), nullptr)) ||
        FAILED(stream->Seek({}, STREAM_SEEK_SET, nullptr)))
        return nullptr;
    return stream;
}

}  // namespace

XmlDocument StartLoadingXml(const std::string& path) {
    EnsureCom();
    const Microsoft::WRL::ComPtr<IStream> bytes = SafeBytesOf(path);
    XmlDocument document;
    if (!bytes || FAILED(late::CoCreateInstance(CLSID_DOMDocument, nullptr, CLSCTX_INPROC_SERVER,
                                                IID_IXMLDOMDocument,
                                                reinterpret_cast<void**>(document.GetAddressOf()))))
        return nullptr;
    // Both default to true: the library would fetch a schema that the document names.
    if (FAILED(document->put_resolveExternals(VARIANT_FALSE)) ||
        FAILED(document->put_validateOnParse(VARIANT_FALSE)))
        return nullptr;
    Variant source(bytes.Get());
    VARIANT_BOOL began = VARIANT_FALSE;
    if (FAILED(document->load(*source.Get(), &began)) || began == VARIANT_FALSE) return nullptr;
    return document;
}

XmlState StateOf(const XmlDocument& document) {
    long state = 0;
    if (!document || FAILED(document->get_readyState(&state))) return XmlState::Failed;
    if (state != kLoaded) return XmlState::Loading;
    Microsoft::WRL::ComPtr<IXMLDOMParseError> error;
    long code = 0;
    const bool isWhole = SUCCEEDED(document->get_parseError(&error)) && error &&
                         SUCCEEDED(error->get_errorCode(&code)) && code == 0;
    return isWhole ? XmlState::Loaded : XmlState::Failed;
}

XmlDocument LoadXmlFile(const std::string& path) {
    XmlDocument document = StartLoadingXml(path);
    while (StateOf(document) == XmlState::Loading) PumpOrWait(kPollMilliseconds);
    return StateOf(document) == XmlState::Loaded ? document : nullptr;
}

XmlNodeList SelectNodes(const XmlDocument& document, const char* path) {
    XmlNodeList list;
    if (FAILED(document->selectNodes(Bstr(path).Get(), &list))) return nullptr;
    return list;
}

XmlNode NextNode(const XmlNodeList& list) {
    XmlNode node;
    if (!list || FAILED(list->nextNode(&node))) return nullptr;
    return node;
}

std::string NodeName(const XmlNode& node) {
    Bstr name;
    return SUCCEEDED(node->get_nodeName(name.Receive())) ? name.Text() : std::string();
}

XmlAttributes NodeAttributes(const XmlNode& node) {
    XmlAttributes attributes;
    Microsoft::WRL::ComPtr<IXMLDOMNamedNodeMap> map;
    if (FAILED(node->get_attributes(&map)) || !map) return attributes;
    long count = 0;
    if (SUCCEEDED(map->get_length(&count))) attributes.reserve(static_cast<std::size_t>(count));
    XmlNode attribute;
    while (map->nextNode(attribute.ReleaseAndGetAddressOf()) == S_OK && attribute)
        attributes.push_back({BaseName(attribute), NodeText(attribute)});
    return attributes;
}

std::optional<std::string> DocumentUtf8(const XmlDocument& document) {
    Bstr text;
    if (FAILED(document->get_xml(text.Receive()))) return std::nullopt;
    return text.Text();
}

std::string BaseName(const XmlNode& node) {
    Bstr name;
    return SUCCEEDED(node->get_baseName(name.Receive())) ? name.Text() : std::string();
}

std::string NodeText(const XmlNode& node) {
    Bstr text;
    return SUCCEEDED(node->get_text(text.Receive())) ? text.Text() : std::string();
}

}  // namespace win
