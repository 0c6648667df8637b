// SPDX-License-Identifier: MIT
// GET requests over Qt's network access, each with an event loop of its own to wait in.
#include "shell/qt/blocking_get.h"

#include <QEventLoop>
#include <QNetworkProxy>
#include <QNetworkReply>
#include <QNetworkRequest>
#include <QTimer>
#include <algorithm>

#include "shell/qt/code_page.h"

namespace requite {
namespace {

constexpr qint64 kReadBuffer = 1024 * 1024;

/// The URL that bytes of the code page stand for. A byte beyond ASCII is sent as "%XX" of that byte, as
/// a script that works in the same code page reads it; in a host it is a letter of an international name.
QUrl UrlOf(const std::string& text) {
  const std::size_t scheme = text.find("://");
  if (scheme == std::string::npos) return {};
  const std::size_t hostEnd = std::min(text.find_first_of("/?#", scheme + 3), text.size());
  QByteArray encoded = ToUnicode(std::string_view(text).substr(0, hostEnd)).toUtf8();
  for (const char byte : std::string_view(text).substr(hostEnd)) {
    if (static_cast<unsigned char>(byte) < 0x80) {
      encoded += byte;
    } else {
      encoded += '%' + QByteArray(1, byte).toHex().toUpper();
    }
  }
  return QUrl::fromEncoded(encoded, QUrl::TolerantMode);
}

bool IsWebUrl(const QUrl& url) {
  return url.isValid() && !url.host().isEmpty() && url.port(1) != 0 &&
         (url.scheme() == QLatin1String("http") || url.scheme() == QLatin1String("https"));
}

std::uint16_t PortOf(const QUrl& url) {
  return static_cast<std::uint16_t>(url.port(url.scheme() == QLatin1String("https") ? 443 : 80));
}

bool IsRedirect(int status) {
  return status == 301 || status == 302 || status == 303 || status == 307 || status == 308;
}

}  // namespace

/// A GET in progress: what has come, and the loop that waits for more.
class BlockingGet::Transfer {
 public:
  explicit Transfer(const GetLimits& limits) : limits_(limits) {
    silence_.setSingleShot(true);
    QObject::connect(&silence_, &QTimer::timeout, &loop_, [this] { End(); });
  }

  /// Waits until the reply is complete, silent for too long, too long, or given up.
  void Await(QNetworkReply& reply) {
    reply.setReadBufferSize(kReadBuffer);
    QObject::connect(&reply, &QNetworkReply::metaDataChanged, &loop_, [this, &reply] { TakeHead(reply); });
    QObject::connect(&reply, &QNetworkReply::readyRead, &loop_, [this, &reply] { TakeBody(reply); });
    QObject::connect(&reply, &QNetworkReply::finished, &loop_, [this, &reply] {
      TakeHead(reply);
      TakeBody(reply);
      End();
    });
    Body.clear();
    Opened = false;
    ended_ = false;
    silence_.start(limits_.Silence);
    // Should the program be told to end meanwhile, the loop ends without the reply.
    if (!Aborted) loop_.exec();
    if (!ended_) Aborted = true;
    silence_.stop();
    QObject::disconnect(&reply, nullptr, &loop_, nullptr);
  }

  void GiveUp() {
    Aborted = true;
    End();
  }

  bool Opened = false;
  bool Aborted = false;
  int Status = 0;
  QUrl Location;
  std::string Body;

 private:
  void End() {
    ended_ = true;
    loop_.quit();
  }

  void TakeHead(const QNetworkReply& reply) {
    const QVariant status = reply.attribute(QNetworkRequest::HttpStatusCodeAttribute);
    if (!status.isValid() || ended_) return;
    Opened = true;
    Status = status.toInt();
    Location = QUrl::fromEncoded(reply.rawHeader("Location"), QUrl::TolerantMode);
    silence_.start(limits_.Silence);
  }

  void TakeBody(QNetworkReply& reply) {
    if (!reply.isOpen() || ended_) return;
    const QByteArray piece = reply.readAll();
    const std::size_t room = limits_.MostBytes - Body.size();
    Body.append(piece.constData(), std::min(room, static_cast<std::size_t>(piece.size())));
    silence_.start(limits_.Silence);
    if (Body.size() >= limits_.MostBytes) End();
  }

  const GetLimits& limits_;
  QEventLoop loop_;
  QTimer silence_;
  bool ended_ = false;
};

BlockingGet::BlockingGet(const ConnectMap& map, GetLimits limits) : map_(map), limits_(limits) {}

BlockingGet::~BlockingGet() = default;

std::optional<std::string> BlockingGet::OpenUrl(const std::string& url, std::string_view agent) {
  QUrl target = UrlOf(url);
  const QByteArray agentBytes(agent.data(), static_cast<qsizetype>(agent.size()));
  Transfer transfer(limits_);
  inProgress_.push_back(&transfer);
  for (int redirects = 0; IsWebUrl(target); ++redirects) {
    Run(transfer, target, agentBytes);
    const bool redirected = transfer.Opened && IsRedirect(transfer.Status) && !transfer.Location.isEmpty();
    if (transfer.Aborted || !redirected) break;
    transfer.Opened = false;
    if (redirects == limits_.MostRedirects) break;
    target = target.resolved(transfer.Location);
  }
  std::erase(inProgress_, &transfer);
  if (transfer.Aborted || !transfer.Opened) return std::nullopt;
  return std::move(transfer.Body);
}

void BlockingGet::Run(Transfer& transfer, const QUrl& url, const QByteArray& agent) {
  if (!manager_) {
    manager_ = std::make_unique<QNetworkAccessManager>();
    manager_->setProxy(QNetworkProxy::NoProxy);
  }
  QUrl address = url;
  const Endpoint target = map_.Target(FromUnicode(url.host()), PortOf(url));
  const QString host = url.host();
  QNetworkRequest request;
  if (const QString mapped = ToUnicode(target.Host); mapped != host || target.Port != PortOf(url)) {
    address.setHost(mapped);
    address.setPort(target.Port);
    request.setRawHeader("Host", url.authority(QUrl::FullyEncoded | QUrl::RemoveUserInfo).toLatin1());
    request.setPeerVerifyName(host);
  }
  request.setUrl(address);
  request.setRawHeader("User-Agent", agent);
  // Otherwise the library asks for packed bodies and unpacks them without a limit.
  request.setRawHeader("Accept-Encoding", "identity");
  request.setAttribute(QNetworkRequest::CacheLoadControlAttribute, QNetworkRequest::AlwaysNetwork);
  request.setAttribute(QNetworkRequest::RedirectPolicyAttribute, QNetworkRequest::ManualRedirectPolicy);
  request.setAttribute(QNetworkRequest::Http2AllowedAttribute, false);
  const std::unique_ptr<QNetworkReply> reply(manager_->get(request));
  transfer.Await(*reply);
  reply->abort();
}

void BlockingGet::Abort() {
  for (Transfer* transfer : inProgress_) transfer->GiveUp();
}

}  // namespace requite
