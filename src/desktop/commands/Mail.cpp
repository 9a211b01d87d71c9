// Mail to people of the list, and their cards by mail.
// SPDX-License-Identifier: MIT
#include <QFile>
#include <QTemporaryDir>

#include <desktop/commands/Mail.h>
#include <desktop/texts/Texts.h>
#include <exchange/files/ExportFile.h>
#include <host/MailReason.h>
#include <orvoshare/integration/MapiMailer.h>
#include <people/PersonReader.h>
#include <platform/io/FileName.h>
#include <platform/qt/QtConvert.h>
#include <platform/text/SystemText.h>

namespace orvo::desktop {
namespace {

// By this name the file lies on the disk for a moment; in the message it has another one, so that
// the mail library keeps a copy of its own as long as the mail program may want it.
constexpr const char* kFileName = "attachment.vcf";

QString Refusal(unsigned long code) {
    if (code == SUCCESS_SUCCESS) return {};
    return Text("The mail can't be written: %1").arg(Text(MailReason(code)));
}

QString NoLibrary() {
    const std::string untrusted = WhyNotLoaded(kMailLibrary);
    if (!untrusted.empty()) {
        return Text("The mail library isn't loaded: %1").arg(FromUtf8(untrusted));
    }
    return Text("The mail library MAPI32.DLL isn't installed.");
}

QString Write(std::vector<CEmailAddress>& recipients) {
    CMapiMailer mailer;
    if (!mailer.Initialize()) return NoLibrary();
    return Refusal(mailer.SendMailWithUI(nullptr, nullptr, recipients.size(), recipients.data()));
}

bool WriteCards(const std::vector<CAddressRecord*>& records, CAddressTable& table,
                const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly)) return false;
    for (CAddressRecord* record : records) {
        std::string card = ExportCard(*record, table);
        if (!card.ends_with('\n')) card += "\r\n";
        if (file.write(card.data(), static_cast<qint64>(card.size())) < 0) return false;
    }
    return file.flush();
}

// Of one record its name, so that the receiver knows whose card it is.
CString AttachmentName(const std::vector<CAddressRecord*>& records) {
    CString name;
    if (records.size() == 1) {
        records.front()->GetName(name);
        if (name.IsEmpty()) records.front()->GetCompany(name);
    }
    if (name.IsEmpty()) name = FromQt(Text("Addresses"));
    return SystemText(PlainFileName(ToUtf8(name)) + ".vcf");
}

}  // namespace

QString MailAddressOf(const CAddressRecord& record, CAddressTable& table) {
    for (long slot = 1; slot <= kPhoneSlots; ++slot) {
        const std::string_view text = record.Utf8(PhoneField(slot));
        if (text.find('@') != std::string_view::npos) return FromUtf8(text);
    }
    std::string loss;
    const Person person = ReadPerson(record, table, loss);
    const Detail* mail = person.First(DetailKind::Email);
    return mail ? FromUtf8(mail->text) : QString();
}

QString SendMailTo(const std::vector<QString>& addresses) {
    std::vector<CEmailAddress> recipients;
    recipients.reserve(addresses.size());
    for (const QString& address : addresses) recipients.emplace_back("", FromQt(address));
    if (recipients.empty()) return Text("None of the selected entries has a mail address.");
    return Write(recipients);
}

QString SendAsCards(const std::vector<CAddressRecord*>& records, CAddressTable& table) {
    const QTemporaryDir folder;
    const QString path = folder.filePath(kFileName);
    try {
        if (!folder.isValid() || !WriteCards(records, table, path)) {
            return Text("The cards can't be written to %1.").arg(path);
        }
    } catch (const ExchangeError& error) {
        return FromUtf8(error.what());
    }
    CMapiMailer mailer;
    if (!mailer.Initialize()) return NoLibrary();
    const CString name = AttachmentName(records);
    return Refusal(
        mailer.SendMailAttachmentWithUI(nullptr, 0, nullptr, nullptr, nullptr, FromQt(path), name));
}

}  // namespace orvo::desktop
