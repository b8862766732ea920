#include "Platform/Posix/InstanceMarkState.h"
#include "Platform/Posix/InstanceRecord.h"

#include <cerrno>
#include <glib-unix.h>
#include <glib.h>
#include <list>
#include <sys/socket.h>
#include <tuple>
#include <utility>

namespace Platform
{
namespace
{

/// A sender that hasn't sent its record by then is stuck.
constexpr guint MostSecondsPerSender = 5;
constexpr std::size_t MostSenders = 16;

/// A source of the message loop that is taken out of it at the end.
class LoopSource
{
public:
    LoopSource() = default;
    ~LoopSource() { Remove(); }
    LoopSource(const LoopSource&) = delete;
    LoopSource& operator=(const LoopSource&) = delete;

    void Set(guint source)
    {
        Remove();
        m_source = source;
    }

    void Remove()
    {
        if (m_source != 0)
        {
            g_source_remove(std::exchange(m_source, 0));
        }
    }

    /// For a callback that ends its source by what it returns.
    void Forget() { m_source = 0; }

private:
    guint m_source = 0;
};

class Inbox;

/// One sender. Lives until it was answered, went away or took too long.
struct Sender : std::enable_shared_from_this<Sender>
{
    Sender(Inbox& owner, Posix::Descriptor accepted) : inbox(owner), socket(std::move(accepted)) {}

    Inbox& inbox; ///< Owns this.
    Posix::Descriptor socket;
    Posix::InstanceRecordReader reader;
    LoopSource readable;
    LoopSource limit;
};

class Inbox : public std::enable_shared_from_this<Inbox>
{
public:
    Inbox(int listener, InstanceRequests requests) : m_listener(listener), m_requests(std::move(requests)) {}

    void Open();

    /// Nothing is delivered after this, even in the middle of a request.
    void Close();

    void AcceptAll();
    void Read(Sender& sender);
    void Drop(Sender& sender);

private:
    bool Deliver(const Sender& sender) const;

    bool m_isOpen = true;
    bool m_isFull = false;
    int m_listener; ///< Owned by the mark.
    const InstanceRequests m_requests;
    LoopSource m_acceptable;
    LoopSource m_pause;
    std::list<std::shared_ptr<Sender>> m_senders;
};

gboolean OnAcceptable(gint, GIOCondition, gpointer data)
{
    static_cast<Inbox*>(data)->AcceptAll();
    return G_SOURCE_CONTINUE;
}

gboolean OnPauseOver(gpointer data)
{
    static_cast<Inbox*>(data)->Open();
    return G_SOURCE_CONTINUE; // opening has removed it already
}

gboolean OnReadable(gint, GIOCondition, gpointer data)
{
    // The inbox may go away with all its senders while the request is carried out.
    const std::shared_ptr<Sender> sender = static_cast<Sender*>(data)->shared_from_this();
    const std::shared_ptr<Inbox> inbox = sender->inbox.shared_from_this();
    inbox->Read(*sender);
    return G_SOURCE_CONTINUE; // a sender that is done was dropped with its sources
}

gboolean OnLimit(gpointer data)
{
    auto& sender = *static_cast<Sender*>(data);
    sender.limit.Forget();
    sender.inbox.Drop(sender);
    return G_SOURCE_REMOVE;
}

void Inbox::Open()
{
    m_pause.Remove();
    m_acceptable.Set(g_unix_fd_add(m_listener, G_IO_IN, OnAcceptable, this));
}

void Inbox::Close()
{
    m_isOpen = false;
    m_acceptable.Remove();
    m_pause.Remove();
    m_senders.clear();
}

void Inbox::AcceptAll()
{
    for (;;)
    {
        if (m_senders.size() >= MostSenders)
        {
            // The others wait until one of these has its answer.
            m_isFull = true;
            m_acceptable.Remove();
            return;
        }
        Posix::Descriptor socket(::accept4(m_listener, nullptr, nullptr, SOCK_CLOEXEC | SOCK_NONBLOCK));
        if (!socket)
        {
            if (errno == EMFILE || errno == ENFILE || errno == ENOMEM)
            {
                // The sender still waits there, and the loop would come back here at once, forever.
                m_acceptable.Remove();
                m_pause.Set(g_timeout_add_seconds(1, OnPauseOver, this));
            }
            return;
        }
        if (!Posix::IsPeerOfThisUser(socket.Get()))
        {
            continue;
        }
        const auto sender = std::make_shared<Sender>(*this, std::move(socket));
        constexpr auto Conditions = static_cast<GIOCondition>(G_IO_IN | G_IO_HUP | G_IO_ERR);
        sender->readable.Set(g_unix_fd_add(sender->socket.Get(), Conditions, OnReadable, sender.get()));
        sender->limit.Set(g_timeout_add_seconds(MostSecondsPerSender, OnLimit, sender.get()));
        m_senders.push_back(sender);
    }
}

void Inbox::Read(Sender& sender)
{
    using Progress = Posix::InstanceRecordReader::Progress;
    const Progress progress = sender.reader.Read(sender.socket.Get());
    if (progress == Progress::Waiting)
    {
        return;
    }
    // Carrying out the request may run the loop again, for a box that is shown. This
    // sender has no further part in that.
    sender.readable.Remove();
    sender.limit.Remove();
    if (progress == Progress::Complete)
    {
        const char answer = Deliver(sender) ? Posix::AnswerAccepted : Posix::AnswerRefused;
        // A sender that has gone needs no answer.
        std::ignore = ::send(sender.socket.Get(), &answer, 1, MSG_NOSIGNAL | MSG_DONTWAIT);
    }
    Drop(sender);
}

void Inbox::Drop(Sender& sender)
{
    m_senders.remove_if([&sender](const std::shared_ptr<Sender>& known) { return known.get() == &sender; });
    if (m_isFull && m_isOpen)
    {
        m_isFull = false;
        Open();
    }
}

bool Inbox::Deliver(const Sender& sender) const
{
    // The loop is written in C; nothing that is thrown may pass through it.
    try
    {
        if (m_isOpen && m_requests.onActivate)
        {
            m_requests.onActivate();
        }
        const std::vector<char>& bytes = sender.reader.Bytes();
        if (bytes.empty())
        {
            return m_isOpen;
        }
        return m_isOpen && m_requests.onData && m_requests.onData(bytes.data(), bytes.size());
    }
    catch (...)
    {
        return false;
    }
}

} // namespace

struct InstanceInbox::State
{
    explicit State(std::shared_ptr<Inbox> made) : inbox(std::move(made)) { inbox->Open(); }

    ~State() { inbox->Close(); }

    State(const State&) = delete;
    State& operator=(const State&) = delete;

    std::shared_ptr<Inbox> inbox;
};

InstanceInbox::InstanceInbox(InstanceMark& mark, void*, InstanceRequests requests)
{
    const InstanceMark::State* state = mark.GetState();
    if (state != nullptr && state->listener)
    {
        m_state = std::make_unique<State>(std::make_shared<Inbox>(state->listener.Get(), std::move(requests)));
    }
}

InstanceInbox::~InstanceInbox() = default;

} // namespace Platform
