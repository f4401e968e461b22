"""Trust of dl.exe: the certificates that it rejects, and the proxies that receive the stored login."""

import hashlib
import ssl
import struct
import subprocess

import pytest

from downloader_run import XML, assert_failed, downloader, scrambled, serve, stored_login  # noqa: F401
from feed import AT_START, LAWRENCE, TORNADO, document
from loopback import answer, redirect

CONNECTIONS_KEY = r"HKCU\Software\Microsoft\Windows\CurrentVersion\Internet Settings\Connections"
ROOTS_KEY = r"HKCU\Software\Microsoft\SystemCertificates\Root\Certificates"
# Wine reports a rejected certificate as a failed secure channel.
CERTIFICATE_REJECTED = (12175, 12157)


@pytest.fixture(scope="session")
def own_certificate(tmp_path_factory):
    folder = tmp_path_factory.mktemp("certificate")
    key, certificate = folder / "key.pem", folder / "certificate.pem"
    subprocess.run(
        ["openssl", "req", "-x509", "-newkey", "rsa:2048", "-nodes", "-days", "2", "-subj", "/CN=localhost"]
        + ["-addext", "subjectAltName=DNS:localhost", "-keyout", str(key), "-out", str(certificate)],
        check=True, capture_output=True)
    context = ssl.SSLContext(ssl.PROTOCOL_TLS_SERVER)
    context.load_cert_chain(certificate, key)
    return context, ssl.PEM_cert_to_DER_cert(certificate.read_text())


def registry(*arguments):
    subprocess.run(["wine", "reg", *arguments, "/f"], check=True, capture_output=True)


@pytest.fixture
def tls(own_certificate):
    return own_certificate[0]


@pytest.fixture
def trusted(own_certificate):
    """Makes the user trust the certificate for one test."""
    der = own_certificate[1]
    digest = hashlib.sha1(der).digest()
    store_entry = struct.pack("<III", 3, 1, len(digest)) + digest + struct.pack("<III", 32, 1, len(der)) + der
    key = ROOTS_KEY + "\\" + digest.hex().upper()
    registry("add", key, "/v", "Blob", "/t", "REG_BINARY", "/d", store_entry.hex())
    yield
    registry("delete", key)


def test_certificate_without_trusted_issuer_is_rejected(serve, downloader, tls):
    server = serve({"/feed": answer(200, XML)}, tls)
    assert_failed(downloader.fetch(server.url("/feed", "localhost")), *CERTIFICATE_REJECTED)
    assert server.heads == []


def test_certificate_of_another_host_is_rejected(serve, downloader, tls, trusted):
    server = serve({"/feed": answer(200, XML)}, tls)
    assert_failed(downloader.fetch(server.url("/feed", "127.0.0.1")), *CERTIFICATE_REJECTED)
    assert server.heads == []


def test_redirects_may_lead_to_https_but_not_away_from_it(serve, downloader, tls, trusted):
    plain_answers = {}
    plain = serve(plain_answers)
    secure = serve({"/feed": answer(200, XML), "/out": redirect(plain.url("/feed"))}, tls)
    plain_answers["/in"] = redirect(secure.url("/feed", "localhost"))
    outcome = downloader.fetch(plain.url("/in"))
    assert (outcome.status, outcome.data) == ("0", XML)
    assert_failed(downloader.fetch(secure.url("/out", "localhost")), 1009)
    assert plain.targets() == ["/in"]


@pytest.fixture
def set_proxy():
    """Sets the user's proxy as the Internet Options dialog does; removes it after the test."""

    def write(proxy, bypass="", script=""):
        texts = b"".join(struct.pack("<I", len(text)) + text.encode() for text in (proxy, bypass, script))
        flags = 1 | (2 if proxy else 0) | (4 if script else 0)
        value = struct.pack("<III", 0x46, 1, flags) + texts + bytes(32)
        name = "DefaultConnectionSettings"
        registry("add", CONNECTIONS_KEY, "/v", name, "/t", "REG_BINARY", "/d", value.hex())

    yield write
    write("")


def answer_of_proxy(head, body=XML):
    # "hail:storm" in base 64
    if "\r\nProxy-Authorization: Basic aGFpbDpzdG9ybQ==\r\n" in head:
        return answer(200, body)
    return answer(407, b"", 'Proxy-Authenticate: Basic realm="gate"', "Set-Cookie: id=1; Path=/")


@pytest.mark.parametrize("ini, status, logins", [
    pytest.param(stored_login("hail", "storm"), "0", 1, id="right login"),
    pytest.param(stored_login("hail", "sleet"), "407", 1, id="wrong login, sent once"),
    pytest.param("", "407", 0, id="no login"),
])
def test_proxy_receives_the_stored_login_on_request(serve, downloader, set_proxy, ini, status, logins):
    proxy = serve(answer_of_proxy)
    set_proxy(f"http=127.0.0.1:{proxy.port};https=127.0.0.1:1")
    (downloader.folder / "Tester.ini").write_text(ini)
    outcome = downloader.fetch("http://feed.example/x")
    assert (outcome.status, outcome.data) == (status, XML if status == "0" else None)
    assert {target.replace(":80/", "/") for target in proxy.targets()} == {"http://feed.example/x"}
    assert ["Proxy-Authorization" in head for head in proxy.heads].count(True) == logins
    assert "Proxy-Authorization" not in proxy.heads[0]
    assert not any("\r\ncookie:" in head.lower() for head in proxy.heads)


def test_downloader_reads_the_settings_of_the_program(make_watcher, serve, set_proxy):
    proxy = serve(lambda head: answer_of_proxy(head, document(TORNADO)))
    set_proxy(f"127.0.0.1:{proxy.port}")
    program = make_watcher(LAWRENCE, options={**AT_START, "ProxyUsername": scrambled("hail"),
                                              "ProxyPassword": scrambled("storm")})
    program.store.write({"Hosts": {"Feed": "http://feed.example/"}})
    program.start()
    program.wait_for_picture("new alerts")


def test_https_uses_the_proxy(serve, downloader, set_proxy):
    proxy = serve(lambda head: answer(503))
    set_proxy(f"http=127.0.0.1:1;https=127.0.0.1:{proxy.port}")
    (downloader.folder / "Tester.ini").write_text(stored_login("hail", "storm"))
    outcome = downloader.fetch("https://feed.example/x")
    assert outcome.status != "0" and outcome.data is None
    assert [head.split(" ")[:2] for head in proxy.heads] == [["CONNECT", "feed.example:443"]]
    assert "Proxy-Authorization" not in proxy.heads[0]


def test_configuration_script_selects_the_proxy(serve, downloader, set_proxy):
    proxy = serve(lambda head: answer(200, XML))
    choice = f'host == "feed.example" ? "PROXY 127.0.0.1:{proxy.port}" : "DIRECT"'
    script = f"function FindProxyForURL(url, host) {{ return {choice}; }}"
    configuration = serve({"/proxy.pac": answer(200, script.encode())})
    set_proxy("", script=configuration.url("/proxy.pac"))
    assert downloader.fetch("http://feed.example/x").data == XML
    assert len(proxy.heads) == 1


def test_bypassed_host_never_receives_the_login(serve, downloader, set_proxy):
    server = serve(answer_of_proxy)
    set_proxy("127.0.0.1:1", bypass="127.*;<local>")
    (downloader.folder / "Tester.ini").write_text(stored_login("hail", "storm"))
    assert_failed(downloader.fetch(server.url("/x")), 407)
    assert server.targets() == ["/x"]
