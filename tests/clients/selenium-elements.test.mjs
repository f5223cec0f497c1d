// selenium-webdriver: finding, asking, touching, typing, and the system's questions.
import assert from 'node:assert/strict';
import { test } from 'node:test';
import { By, Key, Origin, until } from 'selenium-webdriver';

import { patience } from './phone.mjs';
import { named, onPhone, onSheet } from './selenium.mjs';

test('selenium-webdriver finds an element by every strategy', onSheet(async (driver) => {
    const sought = await (await driver.findElement(named('Reminder'))).getId();
    for (const by of [
        By.id('Reminder'),
        By.name('Reminder'),
        By.xpath('//XCUIElementTypeButton[@name="Reminder"]'),
        By.linkText('Reminder'),
        By.partialLinkText('emind'),
        new By('-ios predicate string', 'type == "XCUIElementTypeButton" AND label == "Reminder"'),
        new By('-ios class chain', '**/XCUIElementTypeButton[`label == "Reminder"`]'),
    ]) {
        assert.equal(await (await driver.findElement(by)).getId(), sought, by.toString());
    }
    const scrollers = await driver.findElements(By.className('XCUIElementTypeScrollView'));
    assert.equal(scrollers.length, 2);
    assert.equal(await scrollers[1].findElement(By.id('Event')).getText(), 'Event');
    assert.deepEqual(await driver.findElements(By.id('Nobody')), []);
    await assert.rejects(driver.findElement(By.css('div > p')), { name: 'InvalidSelectorError' });
}));

test('selenium-webdriver asks an element what it is', onSheet(async (driver) => {
    const mute = await driver.findElement(By.id('mute'));
    assert.equal(await mute.isDisplayed(), true);
    assert.equal(await mute.isEnabled(), true);
    assert.equal(await mute.isSelected(), false);
    assert.equal(await mute.getTagName(), 'XCUIElementTypeButton');
    assert.equal(await mute.getAttribute('label'), 'mute');
    assert.equal(await driver.findElement(By.id('contacts')).isEnabled(), false);
    const { width, height } = await driver.findElement(named('Note')).getRect();
    assert.deepEqual({ width, height }, { width: 76, height: 104 });
    assert.match(await driver.getPageSource(), /<XCUIElementTypeApplication /);
    for (const picture of [await driver.takeScreenshot(), await mute.takeScreenshot()]) {
        assert.equal(Buffer.from(picture, 'base64').subarray(1, 4).toString(), 'PNG');
    }
}));

test('selenium-webdriver types and clears', onSheet(async (driver) => {
    await driver.findElement(named('Note')).click();
    const text = await driver.findElement(By.className('XCUIElementTypeTextView'));
    await text.sendKeys('Anna', Key.BACK_SPACE, 'e', Key.ENTER, 'Grüße');
    assert.equal(await text.getAttribute('value'), 'Anne\nGrüße');
    await driver.actions().sendKeys('!', Key.BACK_SPACE, '?').perform();
    assert.equal(await text.getText(), 'Anne\nGrüße?');
    await text.clear();
    assert.equal(await text.getText(), '');
}));

test('selenium-webdriver moves a pointer', onSheet(async (driver) => {
    await driver.actions().move({ origin: await driver.findElement(named('Note')) }).press().pause(50).release()
        .perform();
    const cancel = await driver.findElement(named('Cancel'));
    await driver.actions().move({ origin: Origin.VIEWPORT, x: 5, y: 100 }).move({ origin: cancel }).click().perform();
    await driver.wait(until.stalenessOf(cancel), patience);
    await driver.actions().clear();
}));

test('selenium-webdriver answers a question of the system', onSheet(async (driver) => {
    await driver.findElement(named('Reminder')).click();
    await driver.findElement(By.xpath('//XCUIElementTypeCell[starts-with(@label, "List")]')).click();
    const alert = await driver.switchTo().alert();
    assert.equal(await alert.getText(), '“Phone” Would Like to Access Your Reminders');
    await alert.dismiss();
    await assert.rejects(driver.switchTo().alert(), { name: 'NoSuchAlertError' });
}));

test('selenium-webdriver waits, as long as it is told', onPhone(async (driver) => {
    await driver.manage().setTimeouts({ implicit: 300 });
    assert.equal((await driver.manage().getTimeouts()).implicit, 300);
    await assert.rejects(driver.findElement(named('Accept')), { name: 'NoSuchElementError' });

    await driver.manage().setTimeouts({ implicit: patience });
    await Promise.all([
        driver.findElement(named('Accept')),
        driver.executeScript('mobile: gsmCall', { phoneNumber: '+49 89 5551234', action: 'call' }),
    ]);
}));

test('selenium-webdriver is told that an element has gone', onSheet(async (driver) => {
    const note = await driver.findElement(named('Note'));
    await driver.findElement(named('Cancel')).click();
    await driver.wait(until.stalenessOf(note), patience);
    await assert.rejects(note.click(), { name: 'StaleElementReferenceError' });
}));
