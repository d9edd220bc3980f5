#include <ZTDrawEngineLib/text/ZTVariantTextManager.h>

#include <ZTDrawEngineLib/text/ZTTextShapeBase.h>
#include <ZTMarkDataManager/ZTVariantText.h>

#include <QtCore/QDataStream>
#include <QtCore/QLoggingCategory>

#include <algorithm>
#include <limits>

// Kept: the category belongs to the registry, and nothing is written to it.
Q_DECLARE_LOGGING_CATEGORY(LogZTVariantTextManager)
Q_LOGGING_CATEGORY(LogZTVariantTextManager, "R417.LogZTVariantTextManager")

template class ZTSingletonTemplate<ZTVariantTextManager>;

ZTVariantTextManager::ZTVariantTextManager() = default;
ZTVariantTextManager::~ZTVariantTextManager() { deleteAll(); }

int ZTVariantTextManager::newItem(ZTTextShapeBase *shape)
{
    if (shape == nullptr || m_lastId == std::numeric_limits<qint32>::max())
        return 0;
    ++m_lastId;
    if (m_lastId == 0) // after a stream with an id below zero
        ++m_lastId;
    const auto entry = std::make_shared<Entry>();
    entry->id = m_lastId;
    entry->text = std::make_unique<ZTVariantText>();
    m_items.push_back(entry);
    addUse(entry.get(), shape);
    return m_lastId;
}

void ZTVariantTextManager::appendItem(int id, ZTTextShapeBase *shape)
{
    if (shape == nullptr)
        return;
    for (const auto &entry : m_items) {
        if (entry->id == id)
            addUse(entry.get(), shape);
    }
}

bool ZTVariantTextManager::hasId(int id)
{
    return std::any_of(m_items.begin(), m_items.end(),
                       [id](const auto &entry) { return entry->id == id; });
}

QVector<int> ZTVariantTextManager::getIds() const
{
    QVector<int> ids;
    for (const auto &entry : m_items)
        ids << entry->id;
    return ids;
}

QVector<ZTTextShapeBase *> ZTVariantTextManager::getShapes(int id) const
{
    const auto found = std::find_if(m_items.begin(), m_items.end(),
                                    [id](const auto &entry) { return entry->id == id; });
    return found != m_items.end() ? (*found)->shapes : QVector<ZTTextShapeBase *>();
}

ZTVariantText *ZTVariantTextManager::getVariantText(ZTTextShapeBase *shape)
{
    for (const auto &entry : m_items) {
        if (entry->shapes.contains(shape))
            return entry->text.get();
    }
    return nullptr;
}

void ZTVariantTextManager::deleteItem(ZTTextShapeBase *shape)
{
    for (auto entry = m_items.begin(); entry != m_items.end(); ++entry) {
        if (!(*entry)->shapes.contains(shape))
            continue;
        removeUse(entry->get(), shape);
        if ((*entry)->shapes.isEmpty()) {
            m_items.erase(entry);
            return;
        }
    }
}

void ZTVariantTextManager::deleteAll()
{
    m_lastId = 0;
    m_uses.clear();
    for (const auto &entry : m_items)
        entry->shapes.clear();
    m_items.clear();
}

void ZTVariantTextManager::flush()
{
    // setText is the host's code and may take shapes and entries out, which empties the entry's
    // list here. One update for each shape there was: what it appends waits for the next flush.
    const auto entries = m_items;
    for (const auto &entry : entries) {
        const QVector<ZTTextShapeBase *> &shapes = entry->shapes;
        int at = 0;
        for (int calls = shapes.size(); calls > 0 && at < shapes.size(); --calls) {
            ZTTextShapeBase *shape = shapes[at];
            entry->text->update();
            shape->setText(entry->text->getText());
            if (at < shapes.size() && shapes[at] == shape)
                ++at;
        }
    }
}

void ZTVariantTextManager::save(QDataStream &stream)
{
    stream << m_lastId << static_cast<qint32>(m_items.size());
    for (const auto &entry : m_items)
        stream << entry->id << *entry->text;
}

void ZTVariantTextManager::load(QDataStream &stream)
{
    qint32 count = 0;
    stream >> m_lastId >> count;
    for (qint32 i = 0; i < count; ++i) {
        const auto entry = std::make_shared<Entry>();
        entry->text = std::make_unique<ZTVariantText>();
        stream >> entry->id >> *entry->text;
        m_items.push_back(entry);
    }
}

void ZTVariantTextManager::forget(ZTTextShapeBase *shape)
{
    if (s_this == nullptr)
        return;
    const QList<Entry *> entries = s_this->m_uses.values(shape);
    for (Entry *entry : entries)
        s_this->removeUse(entry, shape);
}

void ZTVariantTextManager::addUse(Entry *entry, ZTTextShapeBase *shape)
{
    entry->shapes.append(shape);
    m_uses.insert(shape, entry);
}

void ZTVariantTextManager::removeUse(Entry *entry, ZTTextShapeBase *shape)
{
    entry->shapes.removeOne(shape);
    const auto use = m_uses.find(shape, entry);
    if (use != m_uses.end())
        m_uses.erase(use);
}
