#include "tests/net/net_fixture.h"
#include "tests/support/host_program.h"
#include "utility/curl_downloader.h"
#include "utility/curl_library.h"
#include "utility/encoding.h"
#include "utility/files.h"
#include "utility/handles.h"

#include <wincrypt.h>

using utility::CurlLibrary;
using utility::QzCurlDownloader;

// Both clients against a server whose certificate nobody vouches for, in another's name. The
// server is a program of Wine's host: nothing here speaks the server's part of TLS.

namespace {

const std::wstring Folder = utility::ansiToWide("Z:" TLS_FOLDER "\\");

class Https : public NetTest {
protected:
    static void SetUpTestSuite() {
        CurlLibrary::start();
        if (!hasHost())
            return;
        utility::ufile::removeDir(Folder.substr(0, Folder.size() - 1));
        utility::ufile::makeDir(Folder.substr(0, Folder.size() - 1));
        test::runOnHost(L"Z:\\usr\\bin\\python3 -B " + utility::ansiToWide(TLS_SERVER " " TLS_FOLDER " 100"));
        for (const wchar_t* name : {L"known.port", L"unknown.port"})
            waitFor([&] { return utility::ufile::isExist(Folder + name); });
        trust(true); // before the first transfer: the system looks at its roots once
    }
    static void TearDownTestSuite() {
        if (!hasHost())
            return CurlLibrary::end();
        std::string ignored;
        QzCurlDownloader::downloadMemory(address("known", "/end"), ignored);
        CurlLibrary::end();
        trust(false);
    }
    void SetUp() override {
        NetTest::SetUp();
        if (!hasHost())
            GTEST_SKIP() << "no host of Wine here";
    }

    static bool hasHost() { return utility::ufile::isExist(L"Z:\\usr\\bin\\python3"); }

    static std::string address(const std::string& server, const std::string& path) {
        return "https://127.0.0.1:" + readFile(Folder + utility::ansiToWide(server) + L".port") + path;
    }
    static std::wstring wideAddress(const std::string& server, const std::string& path) {
        return utility::ansiToWide(address(server, path));
    }

    // Puts the known server's certificate among those that the user trusts, or takes it from there.
    static void trust(bool wanted) {
        const std::string bytes = readFile(Folder + L"known.der");
        PCCERT_CONTEXT certificate = nullptr;
        const HCERTSTORE store = CertOpenSystemStoreW(0, L"Root");
        EXPECT_TRUE(CertAddEncodedCertificateToStore(
            store, X509_ASN_ENCODING, reinterpret_cast<const BYTE*>(bytes.data()),
            static_cast<DWORD>(bytes.size()), CERT_STORE_ADD_REPLACE_EXISTING, &certificate));
        EXPECT_TRUE(wanted ? CertFreeCertificateContext(certificate)
                           : CertDeleteCertificateFromStore(certificate));
        CertCloseStore(store, 0);
    }

    std::string document = "old";
    utility::CHttpDownloader client;
};

} // namespace

TEST_F(Https, theFileClientTakesAnyCertificate) {
    EXPECT_TRUE(QzCurlDownloader::downloadMemory(address("unknown", "/a?b=c"), document));
    EXPECT_EQ(document, "over tls: /a?b=c");
    EXPECT_TRUE(QzCurlDownloader::downloadFile(target("file"), address("unknown", "/file"), {}));
    EXPECT_EQ(readFile(targetWide(L"file")), "over tls: /file");
}

TEST_F(Https, theSystemsClientRefusesACertificateThatNobodyVouchesFor) {
    EXPECT_FALSE(client.download2file(wideAddress("unknown", "/file"), targetWide(L"file"), nullptr, false));
    EXPECT_EQ(logged(L"onHttpErro 6, " + std::to_wstring(ERROR_INTERNET_INVALID_CA)), 1);
    EXPECT_FALSE(client.download2mem(document, wideAddress("unknown", "/a")));
    EXPECT_EQ(document, "old");
}

TEST_F(Https, theSystemsClientTakesATrustedCertificateInAnyName) {
    std::wstring url = wideAddress("known", "/a?b=c");
    for (const wchar_t* scheme : {L"https", L"HTTPS"}) {
        document.clear();
        EXPECT_TRUE(client.download2mem(document, url.replace(0, 5, scheme)));
        EXPECT_EQ(document, "over tls: /a?b=c");
    }
}
