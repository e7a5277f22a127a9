#include "answerwatch.h"

#include <tavorogate/topics/topics.h>

namespace Tavoro::Gate {

AnswerWatch::AnswerWatch(BrokerConnection &broker)
{
    BrokerConnection::SubscribeOptions options;
    options.receivesOwn = false;
    options.receivesRetained = false;
    m_subscription = broker.subscribe(Topics::filterOf(Topics::answers()), options,
                                      [this](const BrokerMessage &message) {
                                          if (!message.correlation.isEmpty())
                                              Q_EMIT answered(message);
                                      });
}

} // namespace Tavoro::Gate
