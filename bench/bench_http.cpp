// Web requests through sessions against the network layer by itself, and against
// the cheapest client there is. The server is the reference back end over TLS.
#include "bench/support/backendprocess.h"
#include "bench/support/ratio.h"
#include "http/chttpsession.h"
#include "http/cpassportloginserver.h"
#include "http/managerpool.h"
#include "http/requestheaders.h"
#include "http/requestthrottle.h"
#include "tests/support/fakecontext.h"

#include <QEventLoop>
#include <QNetworkAccessManager>

#include <curl/curl.h>

#include <memory>
#include <vector>

namespace {

constexpr int Requests = 2000;
constexpr int AtATime = 20;
const char *const Path = "/ids/needVerifyCode";
const char *const PicturePath = "/httpSampling.gif";
const char *const Body = "userName=u1&clientType=pc";

// A back end, and a host whose user is logged in.
struct World
{
    BackEndProcess backEnd;
    FakeContext context;
    CPassportLoginServer passport;
    HostContextScope scope{&context};

    World()
    {
        context.authorities = backEnd.caFile();
        context.passportServer = &passport;
        passport.setAuthId(QString(32, QLatin1Char('a')));
        passport.setTicket(QString(32, QLatin1Char('t')));
        passport.setRememberMe(QString(32, QLatin1Char('r')));
    }
    QUrl url() const { return backEnd.url(QString::fromLatin1(Path)); }
};

World &world()
{
    // Ends with the process; what it started ends when its input does.
    static auto *made = new World;
    return *made;
}

std::string whyNot()
{
    return world().backEnd.isServing() ? std::string() : "the back end does not start";
}

// Sends the requests through sessions, so many outstanding that some always wait.
bool throughSessions()
{
    QEventLoop loop;
    int begun = 0;
    int ended = 0;
    bool good = true;
    std::function<void()> begin = [&] {
        ++begun;
        auto *session = new CHttpSession;
        session->setThrottled(true);
        QObject::connect(session, &CHttpSession::signal_finished, session,
                         [&, session](QNetworkReply *reply) {
                             good = good && reply->readAll().contains("\"code\":0");
                             session->deleteLater();
                             if (begun < Requests)
                                 begin();
                             if (++ended == Requests)
                                 loop.quit();
                         });
        session->post(RequestHeaders::formRequest(world().url()), QString::fromLatin1(Body));
    };
    for (int i = 0; i < 2 * AtATime; ++i)
        begin();
    loop.exec();
    return good;
}

// The same with managers that are kept, one request each at a time, and the same
// cookies.
bool throughManagers(std::vector<std::unique_ptr<QNetworkAccessManager>> &managers)
{
    QEventLoop loop;
    int begun = 0;
    int ended = 0;
    bool good = true;
    std::function<void(QNetworkAccessManager *)> begin = [&](QNetworkAccessManager *manager) {
        ++begun;
        QNetworkReply *reply =
            manager->post(RequestHeaders::formRequest(world().url()), QByteArray(Body));
        QObject::connect(reply, &QNetworkReply::finished, reply, [&, reply, manager] {
            good = good && reply->readAll().contains("\"code\":0");
            reply->deleteLater();
            if (begun < Requests)
                begin(manager);
            if (++ended == Requests)
                loop.quit();
        });
    };
    for (const auto &manager : managers)
        begin(manager.get());
    loop.exec();
    return good;
}

std::vector<std::unique_ptr<QNetworkAccessManager>> makeManagers()
{
    std::vector<std::unique_ptr<QNetworkAccessManager>> managers;
    for (int i = 0; i < AtATime; ++i) {
        managers.push_back(std::make_unique<QNetworkAccessManager>());
        RequestHeaders::storeLoginCookies(managers.back()->cookieJar(), world().url());
    }
    return managers;
}

size_t append(char *bytes, size_t size, size_t count, void *to)
{
    static_cast<std::string *>(to)->append(bytes, size * count);
    return size * count;
}

struct CurlClient
{
    struct Transfer
    {
        CURL *easy = nullptr;
        std::string body;
    };
    CURLM *multi = curl_multi_init();
    std::vector<Transfer> transfers{AtATime};

    CurlClient()
    {
        const std::string url = world().url().toEncoded().toStdString();
        const std::string authorities = world().context.authorities.toStdString();
        for (Transfer &transfer : transfers) {
            transfer.easy = curl_easy_init();
            curl_easy_setopt(transfer.easy, CURLOPT_URL, url.c_str());
            curl_easy_setopt(transfer.easy, CURLOPT_CAINFO, authorities.c_str());
            curl_easy_setopt(transfer.easy, CURLOPT_POSTFIELDS, Body);
            curl_easy_setopt(transfer.easy, CURLOPT_WRITEFUNCTION, append);
            curl_easy_setopt(transfer.easy, CURLOPT_WRITEDATA, &transfer.body);
            curl_easy_setopt(transfer.easy, CURLOPT_PRIVATE, &transfer);
        }
    }
    ~CurlClient()
    {
        for (const Transfer &transfer : transfers)
            curl_easy_cleanup(transfer.easy);
        curl_multi_cleanup(multi);
    }

    bool run()
    {
        int begun = 0;
        int ended = 0;
        bool good = true;
        for (const Transfer &transfer : transfers) {
            curl_multi_add_handle(multi, transfer.easy);
            ++begun;
        }
        while (ended < Requests) {
            int running = 0;
            curl_multi_perform(multi, &running);
            int left = 0;
            while (const CURLMsg *message = curl_multi_info_read(multi, &left)) {
                Transfer *transfer = nullptr;
                curl_easy_getinfo(message->easy_handle, CURLINFO_PRIVATE, &transfer);
                good = good && transfer->body.find("\"code\":0") != std::string::npos;
                transfer->body.clear();
                ++ended;
                curl_multi_remove_handle(multi, transfer->easy);
                if (begun < Requests) {
                    curl_multi_add_handle(multi, transfer->easy);
                    ++begun;
                }
            }
            curl_multi_poll(multi, nullptr, 0, 100, nullptr);
        }
        return good;
    }
};

// Connections are made before: the comparison is about requests.
template <class Run> double perRequest(Run &&run)
{
    bool good = true;
    const double cost = Ratio::cpuPerUnit(Requests, [&] { good = run(); });
    return good ? cost : -1;
}

const bool sessions = Ratio::add(
    {"Web request through a throttled session, peer a bare network access manager", "request",
     Ratio::atMostTimes(1.05), "ns", 15},
    [] {
        if (!whyNot().empty())
            return Ratio::Pair{{}, {}, whyNot()};
        auto managers =
            std::make_shared<std::vector<std::unique_ptr<QNetworkAccessManager>>>(makeManagers());
        throughSessions();
        throughManagers(*managers);
        return Ratio::Pair{
            [] { return perRequest(throughSessions); },
            [managers] { return perRequest([&] { return throughManagers(*managers); }); }};
    });

const bool multi =
    Ratio::add({"Web request through a throttled session, peer libcurl's multi interface",
                "request", Ratio::atMostTimes(25), "ns", 3},
               [] {
                   if (!whyNot().empty())
                       return Ratio::Pair{{}, {}, whyNot()};
                   auto curl = std::make_shared<CurlClient>();
                   throughSessions();
                   curl->run();
                   return Ratio::Pair{[] { return perRequest(throughSessions); },
                                      [curl] { return perRequest([&] { return curl->run(); }); }};
               });

const bool managersMade =
    Ratio::add({"Network access managers made for throttled sessions", "request",
                Ratio::atMost(0.6), "managers", 3},
               [] {
                   return Ratio::Pair{[] {
                                          ManagerPool::instance().clear();
                                          const int before = ManagerPool::instance().made();
                                          if (!throughSessions())
                                              return -1.0;
                                          const int made = ManagerPool::instance().made() - before;
                                          return double(made) / Requests;
                                      },
                                      {},
                                      whyNot()};
               });

// How many pictures end while a throttled request runs that is made when 1,000 of
// them are in the queue, in rounds of all that may run at a time. It asks for the same
// as they do, so that one round passes in the time of one request. Counted, because a time would
// tell about the machine only.
double roundsBeforeAnswer()
{
    QObject owner;
    QEventLoop loop;
    int ended = 0;
    int endedBefore = 0;
    bool good = false;
    CHttpSession interactive;
    interactive.setThrottled(true);
    QObject::connect(&interactive, &CHttpSession::signal_finished, [&](QNetworkReply *reply) {
        good = reply->error() == QNetworkReply::NoError;
        loop.quit();
    });
    const QUrl picture = world().backEnd.url(QString::fromLatin1(PicturePath));
    for (int i = 0; i < 1000; ++i) {
        auto *session = new CHttpSession(&owner);
        session->setThrottled(true);
        session->setRequestKind(CHttpSession::PictureKind);
        QObject::connect(session, &CHttpSession::signal_finished, [&] {
            if (++ended != 4 * RequestThrottle::MaximumPictures)
                return;
            endedBefore = ended;
            interactive.post(RequestHeaders::formRequest(world().url()), QString::fromLatin1(Body));
        });
        session->get(RequestHeaders::request(picture));
    }
    loop.exec();
    return good ? double(ended - endedBefore) / RequestThrottle::MaximumPictures : -1;
}

// The answers come after 20 ms: what the machine does meanwhile counts for less.
const bool behindPictures =
    Ratio::add({"Rounds of pictures before the answer to a request behind 1,000 of them", "request",
                Ratio::atMost(2), "rounds"},
               [] {
                   if (!whyNot().empty() || !world().backEnd.delay(QString::fromLatin1(Path), 20) ||
                       !world().backEnd.delay(QString::fromLatin1(PicturePath), 20))
                       return Ratio::Pair{{}, {}, "the back end does not start"};
                   roundsBeforeAnswer(); // makes the connections
                   return Ratio::Pair{roundsBeforeAnswer, {}};
               });

} // namespace
