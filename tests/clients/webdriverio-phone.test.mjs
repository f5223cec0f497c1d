// webdriverio: the system's questions, the way the phone is held, the application's life, the session.
import assert from 'node:assert/strict';
import { existsSync, mkdtempSync, rmSync } from 'node:fs';
import { tmpdir } from 'node:os';
import { join } from 'node:path';
import { test } from 'node:test';

import { openSheet, withPhone } from './phone.mjs';
import { connect, onPhone, onSheet } from './webdriverio.mjs';

const bundle = 'com.apple.InCallService';
const question = '“Phone” Would Like to Access Your Reminders';

const work = (driver) => driver.$('-ios class chain:**/XCUIElementTypeCell[`label == "Work"`]');
const openLists = (driver) => driver.$('//XCUIElementTypeCell[starts-with(@label, "List")]').click();

test('answers a question of the system with no', onSheet(async (driver) => {
    await driver.$('~Reminder').click();
    await openLists(driver);
    assert.equal(await driver.getAlertText(), question);
    assert.deepEqual(await driver.execute('mobile: alert', { action: 'getButtons' }), ["Don’t Allow", 'OK']);

    await driver.dismissAlert();

    await assert.rejects(driver.getAlertText(), { name: 'no such alert' });
    await driver.$('~Back').click();
    await openLists(driver);
    await driver.$('XCUIElementTypeTable').waitForDisplayed();
    assert.equal(await work(driver).isExisting(), false);
}));

test('has questions answered by a setting, or before they are asked', onSheet(async (driver) => {
    await driver.updateSettings({ defaultAlertAction: 'accept' });
    await driver.$('~Reminder').click();
    await openLists(driver);
    await driver.$('~Back').click();
    await openLists(driver);
    await work(driver).waitForDisplayed();
    assert.equal((await driver.getSettings()).defaultAlertAction, 'accept');

    await driver.execute('mobile: setPermission', { access: { calendar: 'yes' } });
    await driver.$('~Back').click();
    await driver.$('~Cancel').click();
    await driver.$('~Cancel').waitForExist({ reverse: true });
    await driver.execute('mobile: tap', { x: 160, y: 50 });
    await driver.$('~Event').click();
    await driver.$('//XCUIElementTypeCell[starts-with(@label, "Calendar")]').click();
    await assert.rejects(driver.getAlertText(), { name: 'no such alert' });
}));

test('turns the tablet', onPhone(async (driver) => {
    assert.equal(await driver.getOrientation(), 'PORTRAIT');
    assert.deepEqual(await driver.getWindowSize(), { width: 768, height: 1024 });

    await driver.setOrientation('LANDSCAPE');

    assert.equal(await driver.getOrientation(), 'LANDSCAPE');
    await driver.setOrientation('PORTRAIT');
    assert.equal(await driver.getOrientation(), 'PORTRAIT');
}, { device: 'ipad' }));

test('ends the application, launches it and tells its state', onPhone(async (driver) => {
    assert.equal(await driver.queryAppState(bundle), 4);
    assert.equal(await driver.terminateApp(bundle), true);
    assert.equal(await driver.queryAppState(bundle), 1);
    assert.equal(await driver.queryAppState('org.example.Nothing'), 0);
    await driver.activateApp(bundle);
    assert.equal(await driver.queryAppState(bundle), 4);

    const { pid } = await driver.execute('mobile: activeAppInfo');
    await driver.relaunchActiveApp();
    assert.notEqual((await driver.execute('mobile: activeAppInfo')).pid, pid);
    await driver.launchApp();
    assert.equal(await driver.queryAppState(bundle), 4);
}));

test('launches an application that died, in the same session', onSheet(async (driver) => {
    const note = await driver.$('~Note').elementId;
    const { pid } = await driver.execute('mobile: activeAppInfo');
    process.kill(pid, 'SIGKILL');
    await driver.waitUntil(async () => await driver.queryAppState(bundle) === 1);
    await assert.rejects(driver.getPageSource(), /launchApp/);

    await driver.execute('mobile: launchApp', { bundleId: bundle });

    await assert.rejects(driver.getElementText(note), { name: 'stale element reference' });
    await openSheet((name, values) => driver.execute(`mobile: ${name}`, values));
    await driver.$('~Note').waitForDisplayed();
}));

test('saves pictures in files', onSheet(async (driver) => {
    const folder = mkdtempSync(join(tmpdir(), 'phone-pictures-'));
    try {
        await driver.saveScreenshot(join(folder, 'screen.png'));
        await driver.$('~Note').saveScreenshot(join(folder, 'note.png'));
        assert.ok(existsSync(join(folder, 'screen.png')) && existsSync(join(folder, 'note.png')));
    } finally {
        rmSync(folder, { recursive: true });
    }
}));

test('knows one context, its timeouts and a phone that is never locked', onPhone(async (driver) => {
    assert.equal(await driver.getContext(), 'NATIVE_APP');
    assert.deepEqual(await driver.getContexts(), ['NATIVE_APP']);
    assert.deepEqual(await driver.getContexts({ returnDetailedContexts: true }), [{ id: 'NATIVE_APP' }]);
    await driver.switchContext('NATIVE_APP');
    await driver.setTimeout({ implicit: 0, script: 1000 });
    assert.equal((await driver.getTimeouts()).script, 1000);
    assert.equal(await driver.isLocked(), false);
    await driver.unlock();
}));

test('is refused what the phone has not got', onPhone(async (driver) => {
    const unsupported = { name: 'unsupported operation' };
    await assert.rejects(driver.back(), unsupported);
    await assert.rejects(driver.lock(), unsupported);
    await assert.rejects(driver.shake(), unsupported);
    await assert.rejects(driver.background(1), unsupported);
    await assert.rejects(driver.startRecordingScreen(), unsupported);
    await assert.rejects(driver.execute('mobile: pressButton', { name: 'home' }), unsupported);
    await assert.rejects(driver.execute(() => 1 + 1), unsupported);
    await assert.rejects(driver.execute('mobile: nothing'), { name: 'unknown command' });
}));

test('asks again by itself only for a while', () => withPhone({}, async (phone) => {
    const driver = await connect(phone, { connectionRetryCount: 1 });
    await assert.rejects(driver.back(), { name: 'unsupported operation' });
    assert.equal(await driver.getOrientation(), 'PORTRAIT');
    await driver.deleteSession();
}));

test('chooses the language and the application for its session', () => withPhone({}, async (phone) => {
    const german = await connect(phone, { capabilities: { 'appium:language': 'de' } });
    assert.equal(german.capabilities.language, 'de');
    await openSheet((name, values) => german.execute(`mobile: ${name}`, values));
    await german.$('~Notiz').waitForDisplayed();

    const older = await connect(phone, { capabilities: { 'appium:bundleId': 'com.apple.mobilephone' } });
    assert.equal((await older.execute('mobile: activeAppInfo')).bundleId, 'com.apple.mobilephone');
    await assert.rejects(german.getPageSource(), { name: 'invalid session id' });
    await older.deleteSession();
    await assert.rejects(connect(phone, { capabilities: { platformName: 'Android' } }), /platformName is iOS/);
}));
