#pragma once

#include <arpa/inet.h>
#include <array>
#include <cstdio>
#include <filesystem>
#include <netinet/in.h>
#include <signal.h>
#include <string>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include "platform/files.h"
#include "platform/temporary_directory.h"

namespace tabulon::test {

/// A real mail server in a process of its own, for as long as the object lives.
class MailServer {
  public:
    static bool IsInstalled() {
        return std::system("/usr/bin/python3 -c 'import aiosmtpd' 2>/dev/null") == 0;
    }

    /// With `encrypts` it offers encryption, with a certificate that it has signed itself.
    explicit MailServer(bool encrypts = false) {
        std::array<int, 2> input{};
        std::array<int, 2> output{};
        if (pipe(input.data()) != 0 || pipe(output.data()) != 0) return;
        m_id = fork();
        if (m_id == 0) Run(input, output, encrypts);
        close(input[0]);
        close(output[1]);
        m_input = input[1];
        FILE* said = fdopen(output[0], "r");
        if (fscanf(said, "%d", &m_port) != 1) m_port = 0;
        fclose(said);
    }
    ~MailServer() {
        close(m_input);
        waitpid(m_id, nullptr, 0);
    }
    MailServer(const MailServer&) = delete;
    MailServer& operator=(const MailServer&) = delete;

    /// "127.0.0.1:" and its port.
    std::string Name() const { return "127.0.0.1:" + std::to_string(m_port); }
    bool HasMail() const { return FileExists(m_folder / "body"); }
    /// One part of the mail that came: sender, recipients, headers, names, defects, body, attachment,
    /// attachment-name, and whether it came encrypted.
    std::string Got(const char* part) const {
        return FileExists(m_folder / part) ? ReadFile(m_folder / part, 1 << 24) : std::string();
    }

  private:
    [[noreturn]] void Run(const std::array<int, 2>& input, const std::array<int, 2>& output,
                          bool encrypts) const {
        dup2(input[0], STDIN_FILENO);
        dup2(output[1], STDOUT_FILENO);
        close(input[1]);
        execl("/usr/bin/python3", "python3", TABULON_SOURCE_DIR "/tests/info/smtp_server.py",
              m_folder.Path().c_str(), encrypts ? "--tls" : nullptr, nullptr);
        _exit(127);
    }

    TemporaryDirectory m_folder;
    pid_t m_id = -1;
    int m_input = -1;
    int m_port = 0;
};

/// A port of the loopback where connections are taken by the system, and nobody ever says a word.
class SilentServer {
  public:
    SilentServer() : m_socket(socket(AF_INET, SOCK_STREAM, 0)) {
        sockaddr_in address{};
        address.sin_family = AF_INET;
        address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        socklen_t size = sizeof address;
        auto* general = reinterpret_cast<sockaddr*>(&address);
        if (bind(m_socket, general, size) == 0 && getsockname(m_socket, general, &size) == 0)
            m_port = ntohs(address.sin_port);
        listen(m_socket, 4);
    }
    ~SilentServer() { Close(); }
    SilentServer(const SilentServer&) = delete;
    SilentServer& operator=(const SilentServer&) = delete;

    /// Then nobody listens on the port.
    void Close() {
        if (m_socket >= 0) close(m_socket);
        m_socket = -1;
    }
    std::string Name() const { return "127.0.0.1:" + std::to_string(m_port); }

  private:
    int m_socket;
    int m_port = 0;
};

}  // namespace tabulon::test
