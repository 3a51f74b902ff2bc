// The pictures whose addresses carry monitoring records.
#include "backend/call.h"
#include "backend/routes/routes.h"

namespace {
// One transparent pixel.
constexpr unsigned char Pixel[] = {'G',  'I',  'F',  '8',  '9',  'a',  0x01, 0x00, 0x01, 0x00, 0x80,
                                   0x00, 0x00, 0x00, 0x00, 0x00, 0xff, 0xff, 0xff, 0x21, 0xf9, 0x04,
                                   0x01, 0x00, 0x00, 0x00, 0x00, 0x2c, 0x00, 0x00, 0x00, 0x00, 0x01,
                                   0x00, 0x01, 0x00, 0x00, 0x02, 0x02, 0x44, 0x01, 0x00, 0x3b};
} // namespace

void addMonitoringServices(Services *services)
{
    const QByteArray pixel(reinterpret_cast<const char *>(Pixel), sizeof Pixel);
    const auto answer = [pixel](const Call &) { return Reply::bytes(pixel, "image/gif"); };
    for (const char *path :
         {"/httpSampling.gif", "/perfSDK.gif", "/crashSDK.gif", "/customSDK.gif"}) {
        services->get(path, Services::Open, answer);
        services->post(path, Services::Open, answer);
    }
}
