#!/usr/bin/env python3
"""tls_server.py FOLDER SECONDS: two https servers on the loopback address, for one test program.

Each has a certificate that is made for this run, signed by itself and in the name of another
host. FOLDER gets of each, "known" and "unknown", the certificate (NAME.der) and the port
(NAME.port). GET /PATH answers "over tls: /PATH". A request for /end ends both, and so does the
time.
"""
import http.server
import os
import pathlib
import ssl
import subprocess
import sys
import threading


class Handler(http.server.BaseHTTPRequestHandler):
    def do_GET(self):
        body = f"over tls: {self.path}".encode()
        self.send_response(200)
        self.send_header("Content-Length", str(len(body)))
        self.end_headers()
        self.wfile.write(body)
        if self.path == "/end":
            os._exit(0)

    def log_message(self, *_):
        pass


class Server(http.server.ThreadingHTTPServer):
    def handle_error(self, *_):  # a client that refuses the certificate
        pass

    def finish_request(self, request, address):  # on the thread of the request: a handshake may hang
        request.do_handshake()
        super().finish_request(request, address)


def serve(folder, name):
    key, certificate = folder / f"{name}.key", folder / f"{name}.pem"
    subprocess.run(["openssl", "req", "-x509", "-newkey", "rsa:2048", "-nodes", "-days", "2", "-keyout", key, "-out",
                    certificate, "-subj", f"/CN={name}.example"], check=True, stderr=subprocess.DEVNULL)
    context = ssl.SSLContext(ssl.PROTOCOL_TLS_SERVER)
    context.load_cert_chain(certificate, key)
    server = Server(("127.0.0.1", 0), Handler)
    server.socket = context.wrap_socket(server.socket, server_side=True, do_handshake_on_connect=False)
    (folder / f"{name}.der").write_bytes(ssl.PEM_cert_to_DER_cert(certificate.read_text()))
    (folder / f"{name}.new").write_text(str(server.server_port))
    (folder / f"{name}.new").rename(folder / f"{name}.port")
    server.serve_forever()


def main():
    threading.Timer(float(sys.argv[2]), os._exit, [0]).start()
    for name in "known", "unknown":
        threading.Thread(target=serve, args=(pathlib.Path(sys.argv[1]), name)).start()


main()
