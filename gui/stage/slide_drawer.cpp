#include "stage/slide_drawer.h"

#include "input/message.h"
#include "stage/animation.h"

#include <QThreadPool>

#include <algorithm>
#include <map>
#include <new>

namespace {

using Slide = MMS_COMP_SMILTimingContainer;

double fittingScale(const QSize &page, const QSize &area)
{
    return std::min(double(area.width()) / page.width(), double(area.height()) / page.height());
}

} // namespace

/// What the thread works with. It has a message of its own, because only one thread may use one.
struct SlideDrawer::Work
{
    explicit Work(QByteArray octets) : pdu(std::move(octets)) { }

    DrawnSlide draw(const SlideRequest &request);
    void open(int slide);
    void addAnimations(const SlideRequest &request, SlideMoment *moment) const;
    /// Calls finish() of the drawer, if it still exists.
    void hand(const DrawnSlide &slide);

    const QByteArray pdu;
    std::unique_ptr<Message> message;
    std::unique_ptr<SlideRenderer> renderer; ///< of one slide, whose decoded pictures it keeps
    std::map<int, Animation> animations; ///< of that slide, by the index of the media object
    int slide = -1;

    std::mutex mutex; ///< of the next member
    SlideDrawer *drawer = nullptr;
};

void SlideDrawer::Work::open(int index)
{
    if (!message)
        message = decodeMessage(pdu);
    if (slide == index)
        return;
    slide = -1; // until all of it was opened
    renderer = std::make_unique<SlideRenderer>(*message, 1);
    animations.clear();
    const Slide *shown = message->slides().getSlide(unsigned(index));
    for (unsigned int i = 0; shown && i < shown->getMediaObjectCount(); ++i) {
        const MMS_COMP_SMILMediaObject &object = *shown->getMediaObject(i);
        if (!object.getData() || object.getMediaElementType() != SMIL_MEDIA_IMAGE
            || animations.size() >= 2) // as many pictures as a slide has
            continue;
        Animation animation(object.getData()->getBodyData());
        if (!animation.isEmpty())
            animations.emplace(int(i), std::move(animation));
    }
    slide = index;
}

void SlideDrawer::Work::addAnimations(const SlideRequest &request, SlideMoment *moment) const
{
    for (const auto &[object, animation] : animations)
        moment->pictures.insert(object, animation.frame(animation.indexAt(request.milliseconds)));
}

DrawnSlide SlideDrawer::Work::draw(const SlideRequest &request)
{
    DrawnSlide result;
    result.slide = request.slide;
    try {
        open(request.slide);
        result.scale =
            request.scale > 0 ? request.scale : fittingScale(renderer->pageSize(), request.area);
        renderer->setScreenScale(result.scale);
        SlideMoment moment = request.moment;
        addAnimations(request, &moment);
        result.image = renderer->renderPage(unsigned(request.slide), moment);
        result.isAnimated = !animations.empty();
        result.longTexts = renderer->longTexts();
    } catch (const std::bad_alloc &) {
        result.image = {};
    }
    return result;
}

void SlideDrawer::Work::hand(const DrawnSlide &drawn)
{
    const std::lock_guard lock(mutex);
    if (drawer)
        QMetaObject::invokeMethod(
            drawer, [receiver = drawer, drawn] { receiver->finish(drawn); }, Qt::QueuedConnection);
}

SlideDrawer::SlideDrawer(const QByteArray &pdu, QObject *parent)
    : QObject(parent), m_work(std::make_shared<Work>(pdu))
{
    m_work->drawer = this;
}

SlideDrawer::~SlideDrawer()
{
    const std::lock_guard lock(m_work->mutex);
    m_work->drawer = nullptr;
}

void SlideDrawer::draw(const SlideRequest &request)
{
    if (m_isDrawing)
        m_next = request;
    else
        begin(request);
}

void SlideDrawer::begin(const SlideRequest &request)
{
    m_isDrawing = true;
    QThreadPool::globalInstance()->start(
        [work = m_work, request] { work->hand(work->draw(request)); });
}

void SlideDrawer::finish(const DrawnSlide &slide)
{
    m_isDrawing = false;
    if (m_next)
        begin(*std::exchange(m_next, {}));
    emit drawn(slide);
}
