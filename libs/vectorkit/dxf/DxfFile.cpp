#include <vectorkit/dxf/DxfFile_p.h>

#include <algorithm>
#include <cstdlib>

namespace vectorkit::dxf {

namespace {

QString latin(std::string_view text)
{
    const std::string_view bare = trimmed(text);
    return QString::fromLatin1(bare.data(), static_cast<int>(bare.size()));
}

bool isSectionEnd(std::string_view type)
{
    return type.empty() || type == "ENDSEC" || type == "SECTION" || type == "EOF";
}

void readHeader(const Record &section, Header *header)
{
    std::string_view name;
    for (const Tag &tag : section.tags) {
        if (tag.code == 9)
            name = trimmed(tag.value);
        else if (name == "$ACADVER")
            header->version = latin(tag.value);
        else if (name == "$DWGCODEPAGE")
            header->codePage = latin(tag.value);
        else if (name == "$INSUNITS")
            tag.read(&header->units);
        else if (name == "$MEASUREMENT")
            tag.read(&header->measurement);
        else if (name == "$LUNITS")
            tag.read(&header->lengthUnits);
        else if (name == "$TEXTSIZE")
            tag.read(&header->textSize);
    }
}

void addLayer(const Record &entry, File *file)
{
    constexpr int kFrozen = 1;
    LayerEntry layer;
    layer.name = file->decoder.decode(trimmed(entry.text(2)));
    layer.color = colorOf(entry);
    if (layer.color.index == ColorTag::kByLayer || layer.color.index == ColorTag::kByBlock)
        layer.color.index = 7;
    layer.isOff = entry.integer(62, 7) < 0;
    layer.isFrozen = (entry.integer(70, 0) & kFrozen) != 0;
    layer.isDashed = !isWholeLine(latin(entry.text(6)));
    const QString key = layer.name.toUpper();
    if (file->layerIndex.contains(key))
        return;
    file->layerIndex.insert(key, static_cast<int>(file->layers.size()));
    file->layers.push_back(layer);
}

void addStyle(const Record &entry, File *file)
{
    constexpr int kExtraText = 1000;
    StyleEntry style;
    const std::string_view family = entry.text(kExtraText);
    style.font = file->decoder.decode(trimmed(family.empty() ? entry.text(3) : family));
    const int dot = family.empty() ? style.font.lastIndexOf(QLatin1Char('.')) : -1;
    if (dot > 0)
        style.font.truncate(dot);
    bool isSound = true;
    style.height = entry.number(40, 0.0, &isSound);
    file->styles.insert(file->decoder.key(entry.text(2)), style);
}

void addBlock(const Record &head, Block *block)
{
    constexpr int kOutside = 4;
    bool isSound = true;
    block->base = {head.number(10, 0.0, &isSound), head.number(20, 0.0, &isSound),
                   head.number(30, 0.0, &isSound)};
    block->isOutside = (head.integer(70, 0) & kOutside) != 0;
}

/** Asks now and then whether to go on. */
class Pace
{
public:
    Pace(const TagReader &reader, const std::function<bool(double)> &ask)
        : m_tags(reader), m_goesOn(ask)
    {
    }

    bool step()
    {
        constexpr int kEvery = 1024;
        if (++m_count % kEvery == 0 && m_goesOn)
            m_isGoing = m_isGoing && m_goesOn(m_tags.doneShare());
        return m_isGoing;
    }

private:
    const TagReader &m_tags;
    const std::function<bool(double)> &m_goesOn;
    int m_count = 0;
    bool m_isGoing = true;
};

bool readTables(File *file, Pace *pace)
{
    Record entry;
    while (!isSectionEnd(file->tags.peekType())) {
        file->tags.readRecord(&entry);
        if (entry.type == "LAYER")
            addLayer(entry, file);
        else if (entry.type == "STYLE")
            addStyle(entry, file);
        if (!pace->step())
            return false;
    }
    return true;
}

bool readBlocks(File *file, Pace *pace)
{
    Block *block = nullptr;
    while (!isSectionEnd(file->tags.peekType())) {
        Record record;
        file->tags.readEntity(&record);
        if (record.type == "BLOCK") {
            block = &file->blocks[file->decoder.key(record.text(2))];
            *block = Block();
            addBlock(record, block);
        } else if (record.type == "ENDBLK") {
            block = nullptr;
        } else if (block) {
            block->entities.push_back(std::move(record));
        }
        if (!pace->step())
            return false;
    }
    return true;
}

bool skipSection(File *file, Pace *pace)
{
    while (!isSectionEnd(file->tags.peekType())) {
        file->tags.skipRecord();
        if (!pace->step())
            return false;
    }
    return true;
}

} // namespace

bool isWholeLine(const QString &lineType)
{
    const QString name = lineType.toUpper();
    return name.isEmpty() || name == QLatin1String("CONTINUOUS") ||
           name == QLatin1String("BYLAYER") || name == QLatin1String("BYBLOCK");
}

ColorTag colorOf(const Record &record)
{
    ColorTag color;
    const int index = std::abs(record.integer(62, ColorTag::kByLayer));
    if (index <= ColorTag::kByLayer)
        color.index = index;
    constexpr int kTrueColor = 420;
    if (const Tag *tag = record.find(kTrueColor)) {
        int rgb = 0;
        if (tag->read(&rgb))
            color.trueColor = QColor::fromRgb(0xff000000U | static_cast<unsigned>(rgb));
        // The index that is black on paper is said to be white, as on a dark screen.
        constexpr int kForeground = 7;
        if (color.index == kForeground && color.trueColor == QColor(Qt::white))
            color.trueColor = QColor();
    }
    return color;
}

bool File::readFrame(const std::function<bool(double)> &goesOn)
{
    Pace pace(tags, goesOn);
    while (!tags.peekType().empty()) {
        if (tags.peekType() == "EOF") {
            hasEnd = true;
            return true;
        }
        if (tags.peekType() != "SECTION") {
            tags.skipRecord();
            continue;
        }
        Record section;
        tags.readRecord(&section);
        const std::string_view name = trimmed(section.text(2));
        bool isGoing = true;
        if (name == "HEADER") {
            readHeader(section, &header);
            decoder.setUp(header);
        } else if (name == "TABLES") {
            isGoing = readTables(this, &pace);
        } else if (name == "BLOCKS") {
            isGoing = readBlocks(this, &pace);
        } else {
            if (name == "ENTITIES")
                entitySections.push_back(tags.place());
            isGoing = skipSection(this, &pace);
        }
        if (!isGoing)
            return false;
    }
    return true;
}

void File::readOpeningComment()
{
    constexpr int kComment = 999;
    Tag tag;
    while (tags.nextInRecord(&tag)) {
        if (tag.code == kComment && header.producer.isEmpty())
            header.producer = decoder.decode(trimmed(tag.value));
    }
}

QColor indexedColor(int index)
{
    static constexpr QRgb kPlain[] = {0xff000000, 0xffff0000, 0xffffff00, 0xff00ff00, 0xff00ffff,
                                      0xff0000ff, 0xffff00ff, 0xff000000, 0xff808080, 0xffc0c0c0};
    static constexpr int kGreys[] = {51, 91, 132, 173, 214, 255};
    constexpr int kFirstHue = 10;
    constexpr int kFirstGrey = 250;
    if (index < 0 || index > 255)
        return {};
    if (index < kFirstHue)
        return QColor::fromRgb(kPlain[index]);
    if (index >= kFirstGrey) {
        const int grey = kGreys[index - kFirstGrey];
        return {grey, grey, grey};
    }
    // Twenty-four hues of ten: five brightnesses, each full and half as strong.
    static constexpr int kBrightness[] = {255, 165, 127, 76, 38};
    const int hue = index / 10 - 1;
    const int top = kBrightness[index % 10 / 2];
    const bool isPale = index % 2 == 1;
    // In quarters, how much of each colour: up for four hues, full for eight, down for four.
    const auto part = [&](int hueOfTop) {
        const int distance = std::abs((hue - hueOfTop + 36) % 24 - 12);
        const int quarters = std::max(0, std::min(4, 8 - distance));
        const int strong = top * quarters / 4;
        return isPale ? (top + strong) / 2 : strong;
    };
    return {part(0), part(8), part(16)};
}

double declaredUnitMm(int units)
{
    constexpr double kFoot = 304.8;
    constexpr double kSurveyFoot = 1200000.0 / 3937.0;
    static constexpr double kUnits[] = {0.0,
                                        25.4,
                                        kFoot,
                                        1609344.0,
                                        1.0,
                                        10.0,
                                        1000.0,
                                        1e6,
                                        25.4e-6,
                                        0.0254,
                                        3.0 * kFoot,
                                        1e-7,
                                        1e-6,
                                        1e-3,
                                        100.0,
                                        1e4,
                                        1e5,
                                        1e12,
                                        149597870700e3,
                                        9460730472580800e3,
                                        30856775814913673e3,
                                        kSurveyFoot,
                                        kSurveyFoot / 12.0,
                                        3.0 * kSurveyFoot,
                                        5280.0 * kSurveyFoot};
    constexpr int kCount = sizeof(kUnits) / sizeof(kUnits[0]);
    return units > 0 && units < kCount ? kUnits[units] : 0.0;
}

} // namespace vectorkit::dxf
