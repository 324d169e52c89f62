// A host in miniature: builds a criteria tree through the installed MarkRule package, locks one
// criterion and splits the full marks around it.
#include <markrule.h>

#include <QTextStream>

#include <memory>

namespace {

QRatingItemVirtual* criterion(QRatingItemVirtual* parent, const QString& name) {
    auto* item = new QRatingItem_General;
    item->SetRatingItemIndexRule(MarkCode::IndexByName);
    item->SetRatingItemName(name);
    if (parent)
        parent->AddRatingItem(MarkPointer::fromItem(item), false);
    return item;
}

} // namespace

int main() {
    QTextStream out(stdout);
    std::unique_ptr<QRatingItemVirtual> root(criterion(nullptr, QStringLiteral("exam")));
    QRatingItemVirtual* locked = criterion(root.get(), QStringLiteral("foundation"));
    locked->SetRatingItemScoreStd(40.0);
    locked->SetRatingItemLock(true);
    criterion(root.get(), QStringLiteral("frame"));
    criterion(root.get(), QStringLiteral("roof"));

    root->RedistributeScore(100.0);

    double sum = 0.0;
    QList<void*> children;
    root->GetRatingItemList(children);
    for (void* pointer : children) {
        QRatingItemVirtual* child = MarkPointer::item(pointer);
        out << child->GetRatingItemName() << '\t' << child->GetRatingItemScoreStd()
            << (child->GetRatingItemLock() ? "\tlocked" : "") << '\n';
        sum += child->GetRatingItemScoreStd();
    }
    out << "total\t" << sum << '\n';
    return sum == 100.0 ? 0 : 1;
}
