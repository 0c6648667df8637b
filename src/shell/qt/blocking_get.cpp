// SPDX-License-Identifier: MIT
// GET requests over Qt's network access, each with an event loop of its own to wait in.
#include "shell/qt/blocking_get.h"

#include <unistd.h>

#include <QEventLoop>
#include <QNetworkProxy>
#include <QNetworkReply>
#include <QNetworkRequest>
#include <QSocketNotifier>
#include <QTimer>
#include <algorithm>

#include "shell/qt/code_page.h"

namespace requite {
namespace {

constexpr qint64 kReadBuffer = 1024 * 1024;

/// How long an address may take to accept a connection while there is another one to try.
constexpr std::chrono::milliseconds kConnecting{7000};

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

/// A request for the URL that goes to an address found for its host. The host stands in the request
/// itself, and in the check of the server's certificate.
QNetworkRequest RequestFor(const QUrl& url, const QByteArray& agent, const QString& address,
                           std::uint16_t port) {
  QUrl target = url;
  target.setHost(address);
  target.setPort(port);
  QNetworkRequest request(target);
  request.setPeerVerifyName(url.host(QUrl::FullyEncoded));
  request.setRawHeader("Host", url.authority(QUrl::FullyEncoded | QUrl::RemoveUserInfo).toLatin1());
  request.setRawHeader("User-Agent", agent);
  // Otherwise the library asks for packed bodies and unpacks them without a limit.
  request.setRawHeader("Accept-Encoding", "identity");
  request.setAttribute(QNetworkRequest::CacheLoadControlAttribute, QNetworkRequest::AlwaysNetwork);
  request.setAttribute(QNetworkRequest::RedirectPolicyAttribute, QNetworkRequest::ManualRedirectPolicy);
  request.setAttribute(QNetworkRequest::Http2AllowedAttribute, false);
  // The library would keep these by address, and many sites may share one.
  request.setAttribute(QNetworkRequest::CookieLoadControlAttribute, QNetworkRequest::Manual);
  request.setAttribute(QNetworkRequest::CookieSaveControlAttribute, QNetworkRequest::Manual);
  request.setAttribute(QNetworkRequest::AuthenticationReuseAttribute, QNetworkRequest::Manual);
  return request;
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

  /// Waits until the reply is complete, silent for too long, too long, or given up; with another address
  /// to try, only a short while for the connection.
  void Await(QNetworkReply& reply, bool isLastAddress) {
    reply.setReadBufferSize(kReadBuffer);
    QObject::connect(&reply, &QNetworkReply::metaDataChanged, &loop_, [this, &reply] { TakeHead(reply); });
    QObject::connect(&reply, &QNetworkReply::readyRead, &loop_, [this, &reply] { TakeBody(reply); });
    QObject::connect(&reply, &QNetworkReply::finished, &loop_, [this, &reply] {
      TakeHead(reply);
      TakeBody(reply);
      End();
    });
    QObject::connect(&reply, &QNetworkReply::requestSent, &loop_, [this] {
      Sent = true;
      silence_.start(limits_.Silence);
    });
    Body.clear();
    Opened = false;
    Sent = false;
    Wait(isLastAddress ? limits_.Silence : std::min(limits_.Silence, kConnecting));
    QObject::disconnect(&reply, nullptr, &loop_, nullptr);
  }

  /// Waits until the descriptor can be read. False when it was silent for too long, or given up.
  bool AwaitReadable(int descriptor) {
    bool readable = false;
    QSocketNotifier notifier(descriptor, QSocketNotifier::Read);
    QObject::connect(&notifier, &QSocketNotifier::activated, &loop_, [&] {
      notifier.setEnabled(false);
      readable = true;
      End();
    });
    Wait(limits_.Silence);
    return readable && !Aborted;
  }

  void GiveUp() {
    Aborted = true;
    End();
  }

  bool Sent = false;  ///< a server has the request, which must not be made twice
  bool Opened = false;
  bool Aborted = false;
  int Status = 0;
  QUrl Location;
  std::string Body;

 private:
  void Wait(std::chrono::milliseconds silence) {
    ended_ = false;
    silence_.start(silence);
    if (!Aborted) loop_.exec();
    // Should the program be told to end meanwhile, the loop ends by itself.
    if (!ended_) Aborted = true;
    silence_.stop();
  }

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

BlockingGet::BlockingGet(const ConnectMap& map, GetLimits limits, LookUp lookUp)
    : map_(map), limits_(limits), lookUp_(lookUp) {}

BlockingGet::~BlockingGet() = default;

std::optional<std::string> BlockingGet::OpenUrl(const std::string& url, std::string_view agent) {
  QUrl target = UrlOf(url);
  const QByteArray agentBytes(agent.data(), static_cast<qsizetype>(agent.size()));
  if (!manager_) {
    manager_ = std::make_unique<QNetworkAccessManager>();
    manager_->setProxy(QNetworkProxy::NoProxy);
  }
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
  const Endpoint target = map_.Target(FromUnicode(url.host(QUrl::FullyEncoded)), PortOf(url));
  const SocketAddresses addresses = AddressesOf(target.Host, transfer);
  for (const SocketAddress& address : addresses) {
    const std::unique_ptr<QNetworkReply> reply(
        manager_->get(RequestFor(url, agent, QString::fromStdString(address.Text()), target.Port)));
    transfer.Await(*reply, &address == &addresses.back());
    reply->abort();
    if (transfer.Sent || transfer.Opened || transfer.Aborted) return;
  }
}

SocketAddresses BlockingGet::AddressesOf(const std::string& host, Transfer& transfer) {
  if (SocketAddresses numeric = NumericAddress(host); !numeric.empty()) return numeric;
  if (std::optional<SocketAddresses> found = cache_.Find(host)) return *std::move(found);
  const int answer = StartLookUp(lookUp_, host);
  if (answer < 0) return {};
  SocketAddresses addresses;
  if (transfer.AwaitReadable(answer)) addresses = TakeAnswer(answer);
  ::close(answer);
  cache_.Keep(host, addresses);
  return addresses;
}

void BlockingGet::Abort() {
  for (Transfer* transfer : inProgress_) transfer->GiveUp();
}

}  // namespace requite
