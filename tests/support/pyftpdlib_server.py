"""A pyftpdlib server for the tests: one folder as root, on 127.0.0.1.

Users: test/secret may do everything; reader/secret may only list and read;
anonymous reads. With --dots the server offers no MLSD and its LIST starts
with "." and "..", as some servers' listings do. With --passive-only it
refuses PORT and EPRT (500), as servers behind some firewalls do. With
--pwd-fails every PWD is answered 550.
Usage: pyftpdlib_server.py PORT ROOT [--dots] [--passive-only] [--pwd-fails]
"""
import logging
import sys

from pyftpdlib.authorizers import DummyAuthorizer
from pyftpdlib.filesystems import AbstractedFS
from pyftpdlib.handlers import FTPHandler
from pyftpdlib.log import config_logging
from pyftpdlib.servers import FTPServer


class DotsFS(AbstractedFS):
    def format_list(self, basedir, listing, ignore_err=True):
        yield from super().format_list(basedir, [".", ".."], ignore_err)
        yield from super().format_list(basedir, listing, ignore_err)


def main():
    port, root = int(sys.argv[1]), sys.argv[2]
    config_logging(level=logging.WARNING)
    auth = DummyAuthorizer()
    auth.add_user("test", "secret", root, perm="elradfmwMT")
    auth.add_user("reader", "secret", root, perm="elr")
    auth.add_anonymous(root)
    handler = FTPHandler
    handler.authorizer = auth
    handler.banner = "ferrydock test server"
    handler.permit_foreign_addresses = True
    if "--dots" in sys.argv[3:]:
        handler.abstracted_fs = DotsFS
        handler.proto_cmds = {k: v for k, v in handler.proto_cmds.items() if k not in ("MLSD", "MLST")}
    if "--passive-only" in sys.argv[3:]:
        handler.proto_cmds = {k: v for k, v in handler.proto_cmds.items() if k not in ("PORT", "EPRT")}
    if "--pwd-fails" in sys.argv[3:]:
        class PwdFails(handler):
            def ftp_PWD(self, line):
                self.respond("550 No current directory.")
        handler = PwdFails
    server = FTPServer(("127.0.0.1", port), handler)
    server.max_cons = 64
    print("ready", flush=True)
    server.serve_forever(handle_exit=True)


if __name__ == "__main__":
    main()
