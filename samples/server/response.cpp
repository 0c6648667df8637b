// SPDX-License-Identifier: MIT
// Building the answers of the sample sites.
#include "response.h"

#include <algorithm>
#include <cctype>
#include <fstream>
#include <iterator>
#include <optional>
#include <stdexcept>
#include <system_error>

namespace requite::samples {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view kHeaderEnd = "\r\n\r\n";

std::string_view ReasonOf(int status) {
  switch (status) {
    case 200: return "OK";
    case 301: return "Moved Permanently";
    case 302: return "Found";
    case 404: return "Not Found";
    case 500: return "Internal Server Error";
    default: return "Sample";
  }
}

std::string SmallPage(int status) {
  const std::string title = std::to_string(status) + " " + std::string(ReasonOf(status));
  return "<html><head><title>" + title + "</title></head>\n<body><h1>" + title + "</h1></body></html>\n";
}

std::string MovedPage(int status, const std::string& url) {
  const std::string title = std::to_string(status) + " " + std::string(ReasonOf(status));
  return "<html><head><title>" + title + "</title></head>\n<body><p>The document has moved <a href=\"" + url +
         "\">here</a>.</p></body></html>\n";
}

/// False for anything that the file system refuses, such as a name that is too long.
bool IsFolder(const fs::path& path) {
  std::error_code ignored;
  return fs::is_directory(path, ignored);
}

std::optional<std::string> FileText(const fs::path& path) {
  std::ifstream file(path, std::ios::binary);
  if (!file) return std::nullopt;
  return std::string(std::istreambuf_iterator<char>(file), {});
}

/// The file of a path; a folder means its index page.
fs::path FileOf(const fs::path& site, std::string_view path) {
  fs::path file = site / fs::path(path.substr(1));
  return IsFolder(file) ? file / "index.html" : file;
}

std::string WithEachLine(std::string_view text, std::string (*change)(std::string_view line)) {
  std::string changed;
  while (!text.empty()) {
    const std::string_view line = text.substr(0, text.find('\n') + 1);
    changed += change(line.empty() ? text : line);
    text.remove_prefix(line.empty() ? text.size() : line.size());
  }
  return changed;
}

std::string Chunk(std::string_view line) {
  constexpr std::string_view digits = "0123456789abcdef";
  std::string size;
  for (std::size_t rest = line.size(); rest > 0; rest /= 16) size.insert(0, 1, digits[rest % 16]);
  return size + "\r\n" + std::string(line) + "\r\n";
}

/// The value of one header, or an empty text.
std::string_view HeaderValue(std::string_view request, std::string_view name) {
  const std::size_t at = request.find("\r\n" + std::string(name) + ": ");
  if (at == std::string_view::npos) return {};
  const std::string_view value = request.substr(at + name.size() + 4);
  return value.substr(0, value.find('\r'));
}

/// A host or path that may be used in a file name: nothing that leads out of the sites' folder.
bool IsHarmless(std::string_view name) {
  for (const char c : name) {
    if (std::isalnum(static_cast<unsigned char>(c)) == 0 &&
        std::string_view("-._/").find(c) == std::string_view::npos) {
      return false;
    }
  }
  return name.find("..") == std::string_view::npos;
}

/// Status line and headers, without the empty line after them.
std::string Headers(int status, std::string_view more) {
  return "HTTP/1.1 " + std::to_string(status) + " " + std::string(ReasonOf(status)) +
         "\r\nServer: sample\r\nContent-Type: text/html; charset=windows-1252\r\nConnection: close" +
         std::string(more);
}

Response Whole(int status, std::string_view body, std::string_view more = {}) {
  Response response;
  response.Bytes = Headers(status, more) + "\r\nContent-Length: " + std::to_string(body.size()) +
                   std::string(kHeaderEnd) + std::string(body);
  return response;
}

Response Carry(const Instruction& instruction, const std::string& page, const fs::path& file) {
  const int status = instruction.Status;
  Response response = Whole(status, page);
  switch (instruction.Behaviour) {
    case Behaviour::Plain:
    case Behaviour::Echo: break;
    case Behaviour::Move:
      return Whole(status, MovedPage(status, instruction.Value), "\r\nLocation: " + instruction.Value);
    case Behaviour::Redirect: return Whole(status, {}, "\r\nLocation: " + instruction.Value);
    case Behaviour::NeverCloses: response.Ending = Ending::StayOpen; break;
    case Behaviour::Silence: return {{}, {}, 1, {}, Ending::StayOpen};
    case Behaviour::Chunked:
      response.Bytes = Headers(status, "\r\nTransfer-Encoding: chunked") + std::string(kHeaderEnd) +
                       WithEachLine(page, Chunk) + "0\r\n\r\n";
      break;
    case Behaviour::Trickle:
      // So slow that the whole takes longer than a short time-out, while each silence is shorter.
      response.Piece = response.Bytes.size() / 12 + 1;
      response.Pause = std::chrono::milliseconds(250);
      break;
    case Behaviour::Gzip:
      return Whole(status, FileText(file.string() + ".gz").value_or(""), "\r\nContent-Encoding: gzip");
    case Behaviour::Reset:
      response.Bytes.resize(response.Bytes.size() / 2);
      response.Pause = std::chrono::milliseconds(100);
      response.Ending = Ending::Reset;
      break;
    case Behaviour::NoHeaderEnd: response.Bytes = Headers(status, "\r\n") + page; break;
    case Behaviour::NulBytes:
      return Whole(status,
                   WithEachLine(page, [](std::string_view line) { return std::string(line) + '\0'; }));
    case Behaviour::EndlessHeader:
      response.Bytes = Headers(status, "\r\n");
      response.Endless = "X-Swell: and another wave, and another wave, and another wave\r\n";
      break;
    case Behaviour::EndlessBody:
      response.Bytes = Headers(status, {}) + std::string(kHeaderEnd) + page;
      response.Endless = "<p>and not a breath of wind, and not a breath of wind</p>\n";
      break;
  }
  return response;
}

}  // namespace

fs::path Sites::FolderOf(std::string_view host) const {
  if (host.starts_with("www.")) host.remove_prefix(4);
  if (host.empty() || !IsHarmless(host)) return {};
  fs::path folder = folder_ / fs::path(host);
  return IsFolder(folder) ? folder : fs::path();
}

std::optional<CertificateWish> Sites::CertificateOf(std::string_view host) const {
  const fs::path site = FolderOf(host);
  return site.empty() ? std::nullopt : FindCertificate(site);
}

Response Sites::Answer(std::string_view request, Side side) const {
  const std::size_t start = request.find(' ') + 1;
  const std::string_view target = request.substr(start, request.find_first_of(" \r\n", start) - start);
  const std::string_view path = target.substr(0, target.find('?'));
  std::string_view host = HeaderValue(request, "Host");
  host = host.substr(0, host.find(':'));

  // Out in the world a name without a dot leads nowhere, such as the "https" of a mistaken address.
  if (!host.empty() && host.find('.') == std::string_view::npos) return {};
  const fs::path site = FolderOf(host);
  if (site.empty() || !path.starts_with('/') || !IsHarmless(path) ||
      (side == Side::Secure && !FindCertificate(site))) {
    return Whole(404, SmallPage(404));
  }
  const fs::path file = FileOf(site, path);
  const std::optional<std::string> page = FileText(file);
  Instruction instruction;
  if (!page) instruction.Status = 404;
  try {
    if (const auto found = FindInstruction(site, path); found && side == Side::Plain) instruction = *found;
  } catch (const std::runtime_error& error) {
    return Whole(500, std::string("<html><body>responses.txt: ") + error.what() + "</body></html>\n");
  }
  if (instruction.Behaviour == Behaviour::Echo) {
    return Whole(instruction.Status, target.substr(std::min(target.size(), path.size() + 1)));
  }
  if (page) return Carry(instruction, *page, file);
  // A site may bring its own error pages, such as "404.html".
  const auto errorPage = FileText(site / (std::to_string(instruction.Status) + ".html"));
  return Carry(instruction, errorPage.value_or(SmallPage(instruction.Status)), file);
}

}  // namespace requite::samples
