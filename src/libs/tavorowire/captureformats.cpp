#include <tavorowire/captureformats.h>

#include <tavorowire/pcapng.h>

namespace Tavoro::SSProxy::Wire {

namespace {

class TextEncoder final : public CaptureEncoder {
public:
    std::string heading() const override { return captureHeading(); }
    std::string encode(int channel, qint64 microseconds, CaptureEvent event,
                       std::string_view bytes) override
    {
        return encodeCaptureLine(channel, microseconds, event, bytes);
    }
};

} // namespace

std::unique_ptr<CaptureEncoder> captureEncoderFor(const QString &path, qint64 startTime)
{
    if (path.endsWith(QLatin1String(".pcapng"), Qt::CaseInsensitive))
        return std::make_unique<PcapngEncoder>(startTime);
    return std::make_unique<TextEncoder>();
}

} // namespace Tavoro::SSProxy::Wire
