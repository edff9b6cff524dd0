"""The stand-in of the publisher's servers, on a stage."""
import json
import shutil
import subprocess
import urllib.parse
import urllib.request

from .basics import BIN, StageError, windows_path


class Publisher:
    """publisher.exe over a folder of its own. What is started on the stage from then on finds it:
    a build for this machine takes the address from the environment."""

    def __init__(self, wine, folder, port=0):
        self.folder = folder
        shutil.rmtree(folder, ignore_errors=True)
        (folder / "vyn").mkdir(parents=True)
        self.process = wine.start(BIN / "publisher.exe", windows_path(folder), "--port", port,
                                  stdout=subprocess.PIPE, text=True)
        word, _, number = self.process.stdout.readline().strip().partition(" ")
        if word != "listening":
            raise StageError(f"the publisher cannot listen on port {port}; is it taken?")
        self.address = f"http://127.0.0.1:{number}"
        wine.environment["VYN_PUBLISHER"] = self.address

    def document(self, name, content):
        (self.folder / "vyn" / name).write_text(json.dumps(content), encoding="utf-8")

    def configuration(self, **members):
        self.document("config_sea.data", members)

    def player(self, url, version="2.1.0"):
        self.document("qzvyn", {"sea": {"url": self.address + url, "vershow": version}})

    def update(self, **members):
        self.document("update_en.data", members)

    def _control(self, verb, query=None, method="POST"):
        query = "?" + urllib.parse.urlencode(query) if query else ""
        body = b"" if method == "POST" else None
        request = urllib.request.Request(f"{self.address}/control/{verb}{query}", data=body, method=method)
        opener = urllib.request.build_opener(urllib.request.ProxyHandler({}))
        return opener.open(request, timeout=10).read().decode()

    def fault(self, path, kind, value="", times=0):
        self._control("fault", dict(path=path, kind=kind, value=value, times=times))

    def clear(self):
        """Takes all faults and the list of requests away."""
        self._control("clear")

    def requests(self):
        return self._control("requests", method="GET")
