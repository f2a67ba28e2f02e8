"""A mail server for a test: takes mail on a free port of the loopback and writes what came into a folder, one file
for each part. Usage: smtp_server.py FOLDER. Says its port in the file "port", and ends with its standard input."""

import email
import email.policy
import pathlib
import sys

from aiosmtpd.controller import Controller


class Handler:
    def __init__(self, folder):
        self.folder = folder

    async def handle_RCPT(self, server, session, envelope, address, options):
        if address.startswith("refused@"):
            return "550 No such person here"
        envelope.rcpt_tos.append(address)
        return "250 OK"

    async def handle_DATA(self, server, session, envelope):
        message = email.message_from_bytes(envelope.content, policy=email.policy.default)
        self.write("sender", envelope.mail_from)
        self.write("recipients", "\n".join(envelope.rcpt_tos))
        self.write("headers", "\n".join(f"{name}: {value}" for name, value in message.items()))
        self.write("names", " ".join(sorted(name.lower() for name in message.keys())))
        self.write("defects", " ".join(map(str, message.defects)))
        self.write("body", message.get_body().get_content())
        for part in message.iter_attachments():
            self.write("attachment-name", part.get_filename())
            (self.folder / "attachment").write_bytes(part.get_content())
        return "250 OK"

    def write(self, name, text):
        (self.folder / name).write_text(text, encoding="utf-8", newline="")


class AnyPort(Controller):
    def _trigger_server(self):  # the base class greets the port that was asked for, here 0
        self.port = self.server.sockets[0].getsockname()[1]
        super()._trigger_server()


if __name__ == "__main__":
    controller = AnyPort(Handler(pathlib.Path(sys.argv[1])), hostname="127.0.0.1", port=0)
    controller.start()
    print(controller.port, flush=True)
    sys.stdin.read()
    controller.stop()
