"""A pyftpdlib server for the tests: one folder as root, on 127.0.0.1.

Users: test/secret may do everything; reader/secret may only list and read;
anonymous reads. With --dots the server offers no MLSD and its LIST starts
with "." and "..", as some servers' listings do. With --passive-only it
refuses PORT and EPRT (500), as servers behind some firewalls do. With
--pwd-fails every PWD is answered 550. With --bare-cwd-fails a CWD without
a folder is answered 501, as most servers do, instead of going to the root.
With --log FILE the folder commands (CWD, DELE, RMD, MKD, RNFR, RNTO) go to
FILE, one a line: the command, the path as the session sees it, the reply
code. Files whose names start with "locked" can't be deleted or renamed.
Usage: pyftpdlib_server.py PORT ROOT [--dots] [--passive-only] [--pwd-fails]
       [--bare-cwd-fails] [--log FILE]
"""
import logging
import os
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


class TestAuthorizer(DummyAuthorizer):
    def has_perm(self, username, perm, path=None):
        if perm in "df" and path and os.path.basename(path).startswith("locked"):
            return False
        return super().has_perm(username, perm, path)


LOGGED = ("CWD", "DELE", "RMD", "MKD", "RNFR", "RNTO")


def logging_handler(handler, log_path):
    class Logged(handler):
        def log_cmd(self, cmd, arg, respcode, respstr):
            if cmd in LOGGED:
                try:
                    path = self.fs.fs2ftp(arg) if arg else ""
                except Exception:
                    path = arg
                with open(log_path, "a", encoding="utf-8") as log:
                    log.write("%s %s %d\n" % (cmd, path, respcode))
            super().log_cmd(cmd, arg, respcode, respstr)
    return Logged


def main():
    port, root = int(sys.argv[1]), sys.argv[2]
    config_logging(level=logging.WARNING)
    auth = TestAuthorizer()
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
    if "--bare-cwd-fails" in sys.argv[3:]:
        class BareCwdFails(handler):
            def pre_process_command(self, line, cmd, arg):
                if cmd in ("CWD", "XCWD") and not arg:
                    self.respond("501 Syntax error: command needs an argument.")
                    return
                super().pre_process_command(line, cmd, arg)
        handler = BareCwdFails
    if "--log" in sys.argv[3:]:
        handler = logging_handler(handler, sys.argv[sys.argv.index("--log") + 1])
    server = FTPServer(("127.0.0.1", port), handler)
    server.max_cons = 64
    print("ready", flush=True)
    server.serve_forever(handle_exit=True)


if __name__ == "__main__":
    main()
