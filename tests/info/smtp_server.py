"""A mail server for a test: takes mail on a free port of the loopback and writes what came into a folder, one file
for each part. Usage: smtp_server.py FOLDER [--tls]. Says its port on its standard output, and ends with its standard
input. With --tls it offers encryption, with a certificate that it has signed itself."""

import email
import email.policy
import logging
import pathlib
import ssl
import subprocess
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
        self.write("encrypted", str(session.ssl is not None))
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


def own_certificate(folder):
    key, certificate = folder / "key.pem", folder / "certificate.pem"
    subprocess.run(["openssl", "req", "-x509", "-newkey", "rsa:2048", "-nodes", "-subj", "/CN=localhost", "-days", "3650",
                    "-keyout", key, "-out", certificate], check=True, stderr=subprocess.DEVNULL)
    context = ssl.create_default_context(ssl.Purpose.CLIENT_AUTH)
    context.load_cert_chain(certificate, key)
    return context


if __name__ == "__main__":
    logging.getLogger("mail.log").disabled = True  # a client that refuses the certificate is no news
    folder = pathlib.Path(sys.argv[1])
    tls = {"tls_context": own_certificate(folder)} if "--tls" in sys.argv else {}
    controller = AnyPort(Handler(folder), hostname="127.0.0.1", port=0, data_size_limit=None, **tls)
    controller.start()
    print(controller.port, flush=True)
    sys.stdin.read()
    controller.stop()
