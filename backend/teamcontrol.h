// The commands of the control port about companies and teams. Each throws BadCommand
// or a JSON exception when it cannot be carried out.
#pragma once

namespace Json {
class Value;
}

struct BackEndContext;

// {"code":"C1","approval":true,"approver":"u000003"}, one of the last two or both.
void changeCompany(const Json::Value &command, BackEndContext *context);
// {"owner":"u000000","members":5000,"groups":200}; answers {"vtId":"1001"}.
void makeTeam(const Json::Value &command, BackEndContext *context, Json::Value *answer);

// For the command line.
void requireTeamApproval(BackEndContext *context);
// Unless the own user of the sample company has such a team; false: there are not that
// many people.
bool provideTeam(int members, BackEndContext *context);
