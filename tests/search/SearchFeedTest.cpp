#include "search/SearchFeed.h"

#include "tests/ScratchStore.h"
#include "win/Com.h"

namespace search {
namespace {

class SearchFeedTest : public tests::ScratchStore {
  protected:
    static win::XmlDocument Load(const std::string& inside) {
        return win::LoadXmlFile(
            WriteScratchFile("<?xml version=\"1.0\" encoding=\"utf-8\"?>\r\n"
                             "<aws:weather xmlns:aws=\"http://a\" xmlns:b=\"http://b\">" +
                             inside + "</aws:weather>"));
    }
    static std::string Read(const std::string& inside, const std::string& path) {
        std::string text;
        for (const win::XmlAttributes& element : ReadElements(Load(inside), path)) {
            for (const auto& [name, value] : element) text += name + "=" + value + ";";
            text += "\n";
        }
        return text;
    }
};

TEST_F(SearchFeedTest, ReadsElementsWithTheNameOfTheFirst) {
    const std::string path = "aws:weather/aws:locations/";
    EXPECT_EQ(
        Read("<aws:locations><aws:l cityname='Łódź &amp; &quot;x&quot;' b:citytype='1' zip=''/>"
             "<aws:other cityname='no'/><!-- x --><aws:l/><aws:l citytype='0'>text</aws:l>"
             "</aws:locations>",
             path),
        "cityname=Łódź & \"x\";citytype=1;zip=;\n\ncitytype=0;\n");
    EXPECT_EQ(Read("<aws:locations/>", path), "");
    EXPECT_EQ(Read("<aws:places><aws:l a='1'/></aws:places>", path), "");
    EXPECT_EQ(Read("<aws:s id='1'/><b:s id='2'/><aws:s id='3'/>", "aws:weather/"),
              "id=1;\nid=3;\n");
    // A document that does not declare the prefix.
    const auto other = win::LoadXmlFile(WriteScratchFile("<weather><l a='1'/></weather>"));
    ASSERT_TRUE(other);
    EXPECT_TRUE(ReadElements(other, "aws:weather/").empty());
}

// Creates documents that resolve external references by default, as on Windows but not in Wine.
class FollowingDocuments final : public IClassFactory {
  public:
    STDMETHODIMP QueryInterface(REFIID, void** result) override {
        *result = this;
        return S_OK;
    }
    STDMETHODIMP_(ULONG) AddRef() override { return 2; }
    STDMETHODIMP_(ULONG) Release() override { return 1; }
    STDMETHODIMP LockServer(BOOL) override { return S_OK; }
    STDMETHODIMP CreateInstance(IUnknown*, REFIID wanted, void** result) override {
        CLSID library;
        CLSIDFromProgID(L"Msxml2.DOMDocument.3.0", &library);
        win::XmlDocument document;
        CoCreateInstance(library, nullptr, CLSCTX_INPROC_SERVER, IID_IXMLDOMDocument,
                         reinterpret_cast<void**>(document.GetAddressOf()));
        document->put_resolveExternals(VARIANT_TRUE);
        document->put_validateOnParse(VARIANT_TRUE);
        return document->QueryInterface(wanted, result);
    }
};

TEST_F(SearchFeedTest, DocumentsLoadNothingElse) {
    win::EnsureCom();
    FollowingDocuments factory;
    DWORD registration = 0;
    ASSERT_EQ(CoRegisterClassObject(CLSID_DOMDocument, &factory, CLSCTX_INPROC_SERVER,
                                    REGCLS_MULTIPLEUSE, &registration),
              S_OK);
    const auto document = Load("");
    CoRevokeClassObject(registration);
    ASSERT_TRUE(document);
    VARIANT_BOOL resolves = VARIANT_TRUE, validates = VARIANT_TRUE;
    document->get_resolveExternals(&resolves);
    document->get_validateOnParse(&validates);
    EXPECT_FALSE(resolves) << "a schema that the document names would be fetched";
    EXPECT_FALSE(validates);
    BSTR address = nullptr;
    EXPECT_NE(document->get_url(&address), S_OK) << "loaded by its path, not from checked bytes";
    SysFreeString(address);
}

}  // namespace
}  // namespace search
