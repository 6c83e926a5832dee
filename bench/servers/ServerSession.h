// A session of the component on a server's database.
#pragma once

#include "bench/servers/RulesOnServer.h"
#include "component/RuleUIClass.h"
#include "tests/support/ComponentTest.h"

namespace kvex::bench {

/// One at a time on a thread. Closed when it goes. What fails raises std::runtime_error.
class ServerSession {
public:
    explicit ServerSession(const RulesOnServer &rules);
    ~ServerSession();
    ServerSession(const ServerSession &) = delete;
    ServerSession &operator=(const ServerSession &) = delete;

    void open();
    /// Opens it and plays in the rules window; the rule editor that opens first is cancelled.
    void playRules(test::Script script);

private:
    class OdbcPlatform final : public test::TestPlatform {
    public:
        using TestPlatform::TestPlatform;
        std::unique_ptr<Connection> createConnection() override;
    };

    void requireNoError() const;

    test::UtilityRecord utility_;
    headless::HeadlessToolkit toolkit_;
    OdbcPlatform platform_{utility_, toolkit_};
    RuleUI ruleUI_{platform_};
};

} // namespace kvex::bench
