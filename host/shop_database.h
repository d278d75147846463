#pragma once

#include <memory>

#include "component/contract/host_objects.h"
#include "host/shop_file.h"

namespace tillora::host {

/// The shop database over its SQLite file. Everything that it hands out shares one connection, and
/// so the save in progress.
class ShopDatabase final : public JetDatabase {
 public:
  explicit ShopDatabase(std::shared_ptr<ShopFile> file);

  std::unique_ptr<OptionsRecord> optionsRecord() override;
  std::unique_ptr<Table> classTable() override;
  std::unique_ptr<Table> accountTable() override;
  std::unique_ptr<Table> randomPriceTable() override;
  std::unique_ptr<Table> gradeTable() override;
  std::unique_ptr<Table> webSiteTable() override;
  std::unique_ptr<Table> currencyTable() override;
  std::unique_ptr<Cursor<Item>> itemList() override;
  std::unique_ptr<Cursor<PaymentItem>> paymentItemList() override;
  std::int32_t terminalCount(TextView criteria) override;
  Text dataFile() override;
  void setDataFile(TextView path) override;

 private:
  std::shared_ptr<ShopFile> file_;
};

}  // namespace tillora::host
