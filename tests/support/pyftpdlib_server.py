"""A pyftpdlib server for the tests: one folder as root, on 127.0.0.1.

Users: test/secret may do everything; reader/secret may only list and read;
anonymous reads. Usage: pyftpdlib_server.py PORT ROOT
"""
import logging
import sys

from pyftpdlib.authorizers import DummyAuthorizer
from pyftpdlib.handlers import FTPHandler
from pyftpdlib.log import config_logging
from pyftpdlib.servers import FTPServer


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
    server = FTPServer(("127.0.0.1", port), handler)
    server.max_cons = 64
    print("ready", flush=True)
    server.serve_forever(handle_exit=True)


if __name__ == "__main__":
    main()
