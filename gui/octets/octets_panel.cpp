#include "octets/octets_panel.h"

#include "check/findings.h"
#include "input/message.h"
#include "octets/hex_view.h"

#include <QHeaderView>
#include <QScopedValueRollback>
#include <QSplitter>
#include <QTreeView>
#include <QVBoxLayout>

OctetsPanel::OctetsPanel(QWidget *parent)
    : QWidget(parent), m_tree(new QTreeView(this)), m_octets(new HexView(this))
{
    m_tree->setModel(&m_model);
    m_tree->setAccessibleName(tr("Fields and parts"));
    m_tree->setUniformRowHeights(true);
    m_tree->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_tree->header()->setStretchLastSection(true);
    setFocusProxy(m_tree);
    auto *splitter = new QSplitter(Qt::Vertical, this);
    splitter->addWidget(m_tree);
    splitter->addWidget(m_octets);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins({});
    layout->addWidget(splitter);
    connect(m_tree->selectionModel(), &QItemSelectionModel::currentChanged, this,
            &OctetsPanel::markItem);
    connect(m_octets, &HexView::chosen, this,
            [this](qsizetype octet) { choose(m_model.tree().innermost(octet)); });
}

void OctetsPanel::setMessage(const Message *message, const Check::Findings &findings)
{
    m_octets->setOctets(message ? message->octets : QByteArray());
    m_model.setTree(message ? OctetTree(*message, findings) : OctetTree());
    m_tree->expandToDepth(0);
    constexpr int Widths[] = {170, 190};
    for (int column = 0; column < 2; ++column)
        m_tree->setColumnWidth(column, Widths[column]);
}

void OctetsPanel::mark(qsizetype offset)
{
    const int item = m_model.tree().innermost(offset);
    choose(item);
    const bool beginsThere = item >= 0 && m_model.tree().item(item).offset == offset;
    m_octets->mark(offset, beginsThere ? m_model.tree().item(item).length : 1);
}

void OctetsPanel::markItem(const QModelIndex &index)
{
    if (!index.isValid() || m_isFollowing)
        return;
    const OctetItem &item = m_model.itemAt(index);
    if (item.length > 0)
        m_octets->mark(item.offset, item.length);
}

// The octets stay as they are marked.
void OctetsPanel::choose(int item)
{
    const QModelIndex index = m_model.indexOf(item);
    const QScopedValueRollback following(m_isFollowing, true);
    m_tree->setCurrentIndex(index);
    m_tree->scrollTo(index);
}
